// SPDX-License-Identifier: Apache-2.0
#include "core/form/Templates.h"

#include "core/form/FileCommands.h"
#include "core/form/Session.h"
#include "core/inputfile/InputFile.h"
#include "core/inputfile/ProjectReader.h"

#include <algorithm>

namespace tw {

namespace {

constexpr size_t kLongestName = 64;

bool nameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' ||
           c == '.';
}

// A save's checks, asked of the form; what they change goes into the template too.
class TemplateChecks : public SaveHooks {
  public:
    TemplateChecks(Session& s, Project& copy) : s_(s), copy_(copy) {}
    void tooManyBents() override {} // its table is empty
    bool pileBoxCheck() override {
        const bool goOn = tw::pileBoxCheck(s_);
        for (Ctl c : {Ctl::txtPileBoxDistance1, Ctl::txtPileBoxDistance2})
            copy_.setValue(inputIndex(c), s_.project().value(c));
        return goOn;
    }

  private:
    Session& s_;
    Project& copy_;
};

} // namespace

std::optional<std::string> templateNameProblem(const std::string& name) {
    if (name.empty()) return "a template needs a name";
    if (name.size() > kLongestName)
        return "a template's name has at most " + std::to_string(kLongestName) + " characters";
    if (name.front() == '.' || !std::all_of(name.begin(), name.end(), nameCharacter))
        return "\"" + name + "\" is not a template's name: one word of letters, digits, \"-\", \"_\" and \".\" " +
               "(not first)";
    return std::nullopt;
}

bool saveAsTemplate(Session& s, const std::string& name, const std::string& path) {
    if (const auto problem = templateNameProblem(name)) {
        s.notice("The template was not saved: " + *problem + ".");
        return false;
    }
    Project copy = s.project();
    copy.table().setRows(1);
    copy.bentCounter = 0;
    copy.bentRegister.clear();
    TemplateChecks checks(s, copy);
    const InputFileText text = composeInputFile(copy, checks);
    if (text.aborted) {
        s.notice("The template " + name + " was not saved: the pile-box distances stopped it, as they stop a save.");
        return false;
    }
    const WriteResult w = s.system.writeFile(path, text.bytes);
    if (w.errorNumber) {
        s.message("The template " + name + " could not be saved: " + w.error, kAppTitle, MsgButtons::OK,
                  MsgIcon::Critical);
        return false;
    }
    s.notice("Template " + name + " saved as " + path + " (the form's inputs, no bents)");
    return true;
}

bool newFromTemplate(Session& s, const std::string& name, const std::string& path) {
    std::string bytes;
    // Read as a project is read, apart from the form first: a template that
    // does not read is told before New clears anything.
    const bool reads = s.guarded([&] {
        ReadResult r = s.system.readFile(path, kMaxInputFileBytes);
        if (r.errorNumber) throw RuntimeError(r.errorNumber, r.error);
        if (const ProjectRead read = readProject(r.bytes); !read.ok()) throw *read.error;
        bytes = std::move(r.bytes);
    });
    if (!reads || !newProject(s)) return false;
    parseProject(s, bytes);
    s.markUnsaved();
    s.notice("A new project from the template " + name + ", not saved yet");
    return true;
}

} // namespace tw
