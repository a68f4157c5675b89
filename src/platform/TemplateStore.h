// SPDX-License-Identifier: Apache-2.0
// Where templates lie: the user's own in templates/ of the per-user data
// folder, the ones shipped with the program in templates/ of the program
// folder. A user's template hides a shipped one of the same name.
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace tw {

struct TemplateEntry {
    std::string name; // the file's name without ".ebnt"
    std::string path;
    bool shipped = false;
    std::string bentType; // as the reader found it; empty when the template does not read
    std::string problem;  // why it does not read
};

class TemplateStore {
  public:
    // `userFolder` empty: templates/ in the per-user data folder.
    explicit TemplateStore(std::string programDir, QString userFolder = {});
    static QString defaultUserFolder();
    QString userFolder() const { return userFolder_; }
    QString shippedFolder() const;

    // Every template, the user's first, each group by name; each read to
    // learn its bent type.
    std::vector<TemplateEntry> list() const;
    // The template of that name (the user's before a shipped one), or of that path.
    std::optional<TemplateEntry> find(const std::string& nameOrPath) const;
    // The path a template of that name is saved at, its folder made; empty, with `why`, when it cannot be.
    std::string pathForNew(const std::string& name, std::string& why) const;

  private:
    std::string programDir_;
    QString userFolder_;
};

} // namespace tw
