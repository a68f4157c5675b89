// SPDX-License-Identifier: Apache-2.0
// Quoting of texts in replay scripts, in what the headless front end prints
// and in the recovery file: one text a word, on one line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tw {

// "text" with \\ \" \t \r \n escaped.
std::string quote(std::string_view text);

// The text as one line: line breaks and tabs escaped as in quoted words.
std::string oneLine(std::string_view text);

// UTF-8 text as it may reach a terminal: control characters (C0, DEL, C1)
// and bytes that are no UTF-8 written as \xHH, so none of them acts.
std::string printableText(std::string_view text);

struct ScriptWord {
    std::string text;
    bool quoted = false;
};

// Splits a script line into words; a quoted word may hold blanks and the
// escapes \\ \" \t \r \n \b. Nothing on a malformed line (an open quote or
// an unknown escape), with the reason in `error`.
std::optional<std::vector<ScriptWord>> splitScriptLine(std::string_view line, std::string& error);

} // namespace tw
