// SPDX-License-Identifier: Apache-2.0
#include "platform/TemplateStore.h"

#include "core/form/Templates.h"
#include "platform/ProjectFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace tw {

namespace {

const QString kSuffix = QStringLiteral(".ebnt");

// A template is read as a project is read, with nobody watching.
void readEntry(TemplateEntry& e) {
    const ProjectRead read = readProjectFile(e.path);
    if (read.ok())
        e.bentType = read.project.text(Ctl::cboTybent);
    else
        e.problem = whyUnread(read);
}

std::vector<TemplateEntry> entriesIn(const QString& folder, bool shipped) {
    std::vector<TemplateEntry> entries;
    if (folder.isEmpty()) return entries;
    for (const QFileInfo& f : QDir(folder).entryInfoList({QStringLiteral("*") + kSuffix}, QDir::Files, QDir::Name)) {
        TemplateEntry e;
        e.name = f.completeBaseName().toStdString();
        if (templateNameProblem(e.name)) continue; // not one a list can show as one word
        e.path = QFile::encodeName(f.absoluteFilePath()).toStdString();
        e.shipped = shipped;
        entries.push_back(std::move(e));
    }
    return entries;
}

} // namespace

TemplateStore::TemplateStore(std::string programDir, QString userFolder)
    : programDir_(std::move(programDir)), userFolder_(userFolder.isEmpty() ? defaultUserFolder() : userFolder) {}

QString TemplateStore::defaultUserFolder() {
    // Beside the put-aside work: the headless commands and the window find the same folder.
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return data.isEmpty() ? QString() : data + QStringLiteral("/Norvale/Tarnwick/templates");
}

QString TemplateStore::shippedFolder() const {
    return QFile::decodeName(QByteArray::fromStdString(programDir_)) + QStringLiteral("/templates");
}

std::vector<TemplateEntry> TemplateStore::list() const {
    std::vector<TemplateEntry> all = entriesIn(userFolder_, false);
    for (auto& e : entriesIn(shippedFolder(), true))
        if (std::none_of(all.begin(), all.end(), [&](const TemplateEntry& u) { return u.name == e.name; }))
            all.push_back(std::move(e));
    for (auto& e : all)
        readEntry(e);
    return all;
}

std::optional<TemplateEntry> TemplateStore::find(const std::string& nameOrPath) const {
    if (nameOrPath.find('/') != std::string::npos) {
        TemplateEntry e;
        e.path = nameOrPath;
        e.name = QFileInfo(QFile::decodeName(QByteArray::fromStdString(nameOrPath))).completeBaseName().toStdString();
        return e;
    }
    for (const QString& folder : {userFolder_, shippedFolder()})
        for (auto& e : entriesIn(folder, folder != userFolder_))
            if (e.name == nameOrPath) return e;
    return std::nullopt;
}

std::string TemplateStore::pathForNew(const std::string& name, std::string& why) const {
    if (const auto problem = templateNameProblem(name)) {
        why = *problem;
        return {};
    }
    if (userFolder_.isEmpty()) {
        why = "there is no per-user data folder";
        return {};
    }
    if (!QDir().mkpath(userFolder_)) {
        why = "the folder " + userFolder_.toStdString() + " cannot be made";
        return {};
    }
    return QFile::encodeName(userFolder_ + QLatin1Char('/') + QString::fromStdString(name) + kSuffix).toStdString();
}

} // namespace tw
