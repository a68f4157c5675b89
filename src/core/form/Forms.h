// The forms of the program as data, and the table of their event handlers.
#pragma once

#include "core/model/Form.h"

#include <string>
#include <vector>

namespace tw {

class App;

// Every form with its controls in their design-time state.
std::vector<Form> buildForms();

// Connects every handler of every form; called once by App.
void installHandlers(App& app);
// The handlers of each part of the program, connected by installHandlers.
void installNumericEntry(App& app);
void installSections(App& app);
void installBeamRows(App& app);
void installFileCommands(App& app);
void installBentTable(App& app);
void installRun(App& app);
void installOutputs(App& app);
void installShellCommands(App& app);

// The tabs of SSTab1, in order. The pile boxes are on tab kPileBoxTab.
const std::vector<std::string>& tabCaptions();
inline constexpr int kPileBoxTab = 2;

// Fixed captions shared by the reset and the handlers.
inline constexpr const char* kDegreeMark = "\u00B0 "; // the degree sign, then a blank
inline constexpr const char* kMinuteMark = "' ";
inline constexpr const char* kSecondMark = "'' ";

} // namespace tw
