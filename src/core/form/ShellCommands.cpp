// SPDX-License-Identifier: Apache-2.0
#include "core/form/ShellCommands.h"

#include "core/form/MainForm.h"
#include "core/form/Session.h"

namespace tw {

namespace {

// How far the About box sits inside the main window's top left corner.
constexpr int kAboutOffset = 1200;

} // namespace

void showSplash(Session& s) {
    const Form& f = s.form(FormId::Splash);
    s.placeForm(FormId::Splash, (s.user.screenWidthTwips() - f.width) / 2, (s.user.screenHeightTwips() - f.height) / 2);
    s.showForm(FormId::Splash);
}

void closeSplash(Session& s) {
    s.closeForm(FormId::Splash);
    loadMainForm(s);
    s.showForm(FormId::Main);
}

void showAbout(Session& s) {
    s.placeForm(FormId::About, s.main().left + kAboutOffset, s.main().top + kAboutOffset);
    s.showForm(FormId::About);
}

void showHelp(Session& s) {
    const std::string guide = s.programDir + "/" + kHelpFile;
    // Where the desktop has no browser, the guide is shown inside the program.
    if (!s.system.shellOpen(guide, "", s.programDir)) s.user.showDocument(guide);
}

} // namespace tw
