// SPDX-License-Identifier: Apache-2.0
// The programs this program starts end when it ends, however it ends (a
// crash, a kill, a power-off of the session): a guard process, forked once,
// holds one end of a socket from us. When we end, the socket closes and the
// guard ends every process group it was told of -- the programs and
// whatever they started themselves.
#pragma once

#include <sys/types.h>

namespace tw::childguard {

// A program just started as the leader of its own process group.
void watch(pid_t group);
// Its group has ended.
void release(pid_t group);
// The guard process, a child of ours; 0 while there is none.
pid_t guardProcess();

} // namespace tw::childguard
