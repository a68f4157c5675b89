// SPDX-License-Identifier: Apache-2.0
// A program we start may start others that leave its process group, or its
// session (`setsid`), and outlive it. Each program we start carries a mark
// in its environment that its descendants inherit, and we adopt whatever it
// orphans (a child subreaper), so that the whole tree can still be found and
// ended by its mark and its parent links.
#pragma once

#include <sys/types.h>

namespace tw::processtree {

// The environment variable that carries the mark.
inline constexpr char kMarkName[] = "TARNWICK_PROCESS_TREE";

// Makes this process the parent of whatever its descendants orphan.
void adoptOrphans();

// Ends `root` (when positive), every process whose environment holds the
// variable with a value that starts with `markValue` (the whole value when
// `whole`), and every descendant of those, until none runs. With `orphans`,
// also every child of ours that carries no mark at all, other than `spare`:
// what a program we started orphaned after it emptied its environment
// (`env -i`), which came to us. Reaps the ones that were our children,
// except `root`, whose owner waits for it. Only system calls: safe in a
// process forked from a threaded one.
void endTree(pid_t root, const char* markValue, bool whole, bool orphans = false, pid_t spare = 0);

} // namespace tw::processtree
