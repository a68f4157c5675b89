// SPDX-License-Identifier: Apache-2.0
#include "platform/Platform.h"
#include "platform/QtText.h"

#include "core/Errors.h"

#include "platform/ChildGuard.h"
#include "platform/DesktopEntry.h"
#include "platform/FileRead.h"
#include "platform/OutputFiles.h"
#include "platform/ProcessTree.h"
#include "platform/PutAsideStore.h"
#include "platform/SafeFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QMimeDatabase>
#include <QProcess>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/prctl.h>
#include <unistd.h>
#include <vector>

namespace tw {

namespace {

// Exit statuses of the engine child, told back to the parent.
constexpr int kLibraryMissing = 48;
constexpr int kEntryMissing = 45;

// At the end of the program: whatever the programs it waited for left
// running, those that emptied their environment and came to us among them.
void endLeftRunning() {
    const std::string prefix = std::to_string(::getpid()) + '-';
    processtree::endTree(0, prefix.c_str(), false, true, childguard::guardProcess());
}

// A program that lives on by itself (a viewer, the desktop's opener): its
// mark, which what it starts inherits, keeps it from the ends above.
bool startOnItsOwn(const QString& program, const QStringList& args, const QString& folder = {}) {
    qputenv(processtree::kMarkName, "on-its-own");
    const bool started = QProcess::startDetached(program, args, folder);
    qunsetenv(processtree::kMarkName);
    return started;
}

} // namespace

WaitEnd Platform::runAndWait(QProcess& proc, const QString& program, const QStringList& args) {
    // In the child, before the program starts: a group of its own, so that
    // it can be ended with everything it started, and an end with ours.
    const pid_t parent = ::getpid();
    // Whatever the program starts inherits the mark, and what it orphans comes to us, so that
    // a descendant that left the group (a daemon, a `setsid`) can still be found and ended.
    static const bool adopting = (processtree::adoptOrphans(), std::atexit(endLeftRunning), true);
    (void)adopting;
    static int programs = 0;
    const QByteArray mark = QByteArray::number(parent) + '-' + QByteArray::number(++programs);
    proc.setChildProcessModifier([parent] {
        ::setpgid(0, 0);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent) ::_exit(127);
    });
    WaitEnd end;
    QEventLoop loop;
    QObject::connect(&proc, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&proc, &QProcess::errorOccurred, &loop, [&](QProcess::ProcessError e) {
        if (e == QProcess::FailedToStart) loop.quit();
    });
    const auto stop = [&proc, mark] {
        processtree::endTree(static_cast<pid_t>(proc.processId()), mark.constData(), true, true,
                             childguard::guardProcess());
        proc.kill();
    };
    Wait wait{&end, stop};
    waits_.push_back(&wait);
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, [&] {
        end.timedOutAfter = timeLimit_;
        stop();
    });
    // Through our own environment, for the moment of the start: an environment of
    // its own would have QProcess start the program another way.
    qputenv(processtree::kMarkName, mark);
    proc.start(program, args);
    qunsetenv(processtree::kMarkName);
    const auto pid = static_cast<pid_t>(proc.processId());
    if (proc.state() != QProcess::NotRunning) {
        childguard::watch(pid);
        if (timeLimit_ > 0) limit.start(std::chrono::seconds(timeLimit_));
        loop.exec();
    }
    // The loop also ends when the program is quitting; the program is ended then.
    if (proc.state() != QProcess::NotRunning) {
        stop();
        proc.waitForFinished(-1);
    }
    waits_.erase(std::find(waits_.begin(), waits_.end(), &wait));
    // What the program left running in its group stays watched until it ends.
    if (pid > 0 && (end.endedEarly() || (::kill(-pid, 0) != 0 && errno == ESRCH))) childguard::release(pid);
    return end;
}

void Platform::cancelWaits() {
    for (Wait* w : waits_) {
        w->end->cancelled = true;
        w->stop();
    }
}

WriteResult Platform::emptyFiles(const std::vector<std::string>& paths) { return emptyOutputFiles(paths); }

WriteResult Platform::writeFile(const std::string& path, const std::string& bytes) { return replaceFile(path, bytes); }

WriteResult Platform::writeFileIfUnchanged(const std::string& path, const std::string& bytes,
                                           const std::string& expected, std::uintmax_t maxBytes) {
    return replaceFileIfUnchanged(path, bytes, expected, maxBytes);
}

ReadResult Platform::readFile(const std::string& path, std::uintmax_t maxBytes) {
    return readRegularFile(path, maxBytes);
}

std::string Platform::readSetting(const std::string& app, const std::string& section, const std::string& key) {
    const std::string value = settings_.read(app + "/" + section + "/" + key);
    tellSettingsProblem();
    return value;
}

void Platform::writeSetting(const std::string& app, const std::string& section, const std::string& key,
                            const std::string& value) {
    settings_.write(app + "/" + section + "/" + key, value);
    tellSettingsProblem();
}

void Platform::tellSettingsProblem() {
    // Once: each setting read or written would say it again.
    if (settings_.problem().empty() || told_) return;
    told_ = true;
    if (onWarning)
        onWarning(settings_.problem());
    else
        std::fprintf(stderr, "tarnwick: warning: %s\n", settings_.problem().c_str());
}

namespace {

// The program and its words: the user's setting split as a command line is,
// then each argument as one word. Nothing when there is no program, which
// would crash QProcess: it is simply a program that cannot start.
std::optional<QStringList> wordsOf(const ProgramCall& call) {
    QStringList words = QProcess::splitCommand(q(call.program));
    if (words.isEmpty() || words.first().trimmed().isEmpty()) return std::nullopt;
    for (const auto& a : call.arguments)
        words << q(a);
    return words;
}

} // namespace

ProcessResult Platform::startAndWait(const ProgramCall& call) {
    ProcessResult result;
    const auto words = wordsOf(call);
    if (!words) {
        result.error = "The command line is empty";
        return result;
    }
    const QStringList& parts = *words;
    QProcess proc;
    proc.setProcessChannelMode(QProcess::ForwardedChannels);
    result.end = runAndWait(proc, parts.first(), parts.mid(1));
    if (proc.error() == QProcess::FailedToStart) {
        result.error = "Cannot start " + parts.first().toStdString() + ": " + proc.errorString().toStdString();
        return result;
    }
    result.started = true;
    result.crashed = proc.exitStatus() == QProcess::CrashExit;
    result.exitCode = proc.exitCode();
    return result;
}

bool Platform::startDetached(const ProgramCall& call) {
    const auto words = wordsOf(call);
    return words && startOnItsOwn(words->first(), words->mid(1));
}

EngineResult Platform::callEngine(const std::string& programDir, const std::array<std::string, 10>& names) {
    // The engine runs in a child process of ours: an engine that crashes or
    // ends its own process takes only the child with it.
    EngineResult r;
    QStringList args = {QStringLiteral("--engine-call"), q(programDir)};
    for (const auto& n : names)
        args << QString::fromUtf8(n.data(), static_cast<qsizetype>(n.size()));
    QProcess proc;
    proc.setProcessChannelMode(QProcess::SeparateChannels);
    r.end = runAndWait(proc, QCoreApplication::applicationFilePath(), args);
    const std::string said = QString::fromLocal8Bit(proc.readAllStandardError()).trimmed().toStdString();
    if (proc.error() == QProcess::FailedToStart) {
        r.errorNumber = err::kDllNotFound;
        r.error = "The engine could not be started: " + proc.errorString().toStdString();
    } else if (proc.exitStatus() == QProcess::CrashExit) {
        r.errorNumber = err::kInternalError;
        r.error = "Internal error: the engine stopped unexpectedly (it crashed)" + (said.empty() ? "" : ": " + said);
    } else if (proc.exitCode() != 0) {
        r.errorNumber = proc.exitCode() == kLibraryMissing ? err::kDllNotFound
                        : proc.exitCode() == kEntryMissing ? err::kEntryNotFound
                                                           : err::kInternalError;
        r.error =
            said.empty() ? "Internal error: the engine ended with status " + std::to_string(proc.exitCode()) : said;
    } else {
        r.ok = true;
    }
    return r;
}

int callEngineHere(const std::string& programDir, const std::array<std::string, 10>& names) {
    QLibrary lib(q(programDir + "/calbnt"));
    if (!lib.load()) {
        std::fprintf(stderr, "File not found: calbnt (the engine library %s/libcalbnt.so could not be loaded)\n",
                     programDir.c_str());
        return kLibraryMissing;
    }
    using Rout = void (*)(char*, int*, char*, int*, char*, int*, char*, int*, char*, int*, char*, int*, char*, int*,
                          char*, int*, char*, int*, char*, int*);
    auto fn = reinterpret_cast<Rout>(lib.resolve("DLL_ROUT"));
    if (!fn) {
        std::fprintf(stderr, "Can't find DLL entry point DLL_ROUT in calbnt (%s/libcalbnt.so)\n", programDir.c_str());
        return kEntryMissing;
    }
    std::vector<std::vector<char>> buffers;
    std::array<int, 10> lengths{};
    for (size_t i = 0; i < names.size(); ++i) {
        buffers.emplace_back(names[i].begin(), names[i].end());
        buffers.back().push_back('\0');
        lengths[i] = static_cast<int>(names[i].size());
    }
    auto b = [&](size_t i) { return buffers[i].data(); };
    auto l = [&](size_t i) { return &lengths[i]; };
    fn(b(0), l(0), b(1), l(1), b(2), l(2), b(3), l(3), b(4), l(4), b(5), l(5), b(6), l(6), b(7), l(7), b(8), l(8), b(9),
       l(9));
    return 0;
}

std::optional<int> engineCall(int argc, char** argv) {
    if (argc != 13 || std::strcmp(argv[1], "--engine-call") != 0) return std::nullopt;
    std::array<std::string, 10> names;
    for (int i = 0; i < 10; ++i)
        names[i] = argv[3 + i];
    return callEngineHere(argv[2], names);
}

AssociatedProgram Platform::associatedProgram(const std::string& file) {
    // The desktop's counterpart of the registry's open command: the default
    // application of the file's MIME type, read from its desktop entry.
    AssociatedProgram a;
    const QMimeType mime = QMimeDatabase().mimeTypeForFile(q(file), QMimeDatabase::MatchExtension);
    if (mime.isDefault()) return a; // a file of no known type has no program
    QProcess query;
    query.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), mime.name()});
    if (!query.waitForFinished(5000) || query.exitStatus() != QProcess::NormalExit) return a;
    const std::string id =
        QString::fromLocal8Bit(query.readAllStandardOutput()).section(QLatin1Char(';'), 0, 0).trimmed().toStdString();
    const std::string entry = id.empty() ? std::string() : findDesktopEntry(id, xdgDataDirs());
    if (entry.empty()) return a;
    a.status = AssociatedProgram::Status::Unreadable;
    QFile f(q(entry));
    if (!f.open(QIODevice::ReadOnly)) return a;
    const auto exec = desktopEntryExec(f.readAll().toStdString());
    const auto command = exec ? openCommandFromExec(*exec) : std::nullopt;
    if (!command) return a;
    a.status = AssociatedProgram::Status::Found;
    a.command = *command;
    return a;
}

bool Platform::shellOpen(const std::string& file, const std::string&, const std::string& folder) {
    QString path = q(file);
    if (QFileInfo(path).isRelative() && !folder.empty()) path = QDir(q(folder)).filePath(path);
    // Whole, so that no name can pass for an option of xdg-open.
    path = QFileInfo(path).absoluteFilePath();
    // xdg-open says yes even where nothing can open the file: ask the desktop first.
    if (associatedProgram(path.toStdString()).status != AssociatedProgram::Status::Found) return false;
    return startOnItsOwn(QStringLiteral("xdg-open"), {path}, q(folder));
}

std::string Platform::readIni(const std::string& path, const std::string& section, const std::string& key,
                              const std::string& defaultValue) {
    return readIniRaw(path, section, key, defaultValue);
}

std::string executableDir() { return QCoreApplication::applicationDirPath().toStdString(); }

PutAside Platform::putAside(const std::string& bytes, const std::string& command) {
    return putAsideInStore(bytes, command);
}

PutAside Platform::putAsideFile(const std::string& path) { return PutAsideStore().keepFile(path); }

} // namespace tw
