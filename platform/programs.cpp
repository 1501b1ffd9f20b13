#include "platform/programs.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QProcess>
#include <QStandardPaths>
#include <QStringDecoder>

#include <array>
#include <optional>

namespace {

constexpr const char* kEditor = "NotePad.exe";
constexpr const char* kHelpViewer = "WinHlp32.exe";
constexpr const char* kOurHelpViewer = "kvarnbo-hjalp";

struct KnownEditor {
    const char* name;
    const char* singleByteOption;  ///< reads a file as windows-1252; none where it finds out itself
};

// In the order in which they are looked for where no desktop names its editor.
constexpr std::array kKnownEditors{
    KnownEditor{"gnome-text-editor", nullptr},
    KnownEditor{"gedit", "--encoding=WINDOWS-1252"},
    KnownEditor{"kate", "--encoding=windows-1252"},
    KnownEditor{"kwrite", "--encoding=windows-1252"},
    KnownEditor{"mousepad", "--encoding=WINDOWS-1252"},
    KnownEditor{"xed", "--encoding=WINDOWS-1252"},
    KnownEditor{"pluma", "--encoding=WINDOWS-1252"},
    KnownEditor{"featherpad", nullptr},
    KnownEditor{"leafpad", "--codeset=WINDOWS-1252"},
    KnownEditor{"l3afpad", "--codeset=WINDOWS-1252"},
    KnownEditor{"geany", nullptr},
};

struct Command {
    QString program;
    QStringList arguments;
};

QString Output(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(2000)) return {};
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

// The value of `key` in the main group of a desktop entry.
QString DesktopEntry(const QString& path, const QString& key) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    bool inMainGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(u'[')) inMainGroup = line == QStringLiteral("[Desktop Entry]");
        if (inMainGroup && line.startsWith(key + u'=')) return line.mid(key.size() + 1).trimmed();
    }
    return {};
}

// What the desktop opens plain text with; the field codes of its command line stand for the files.
std::optional<Command> DesktopEditor(const QStringList& files) {
    const QString entry =
        Output(QStringLiteral("xdg-mime"),
               {QStringLiteral("query"), QStringLiteral("default"), QStringLiteral("text/plain")});
    if (entry.isEmpty()) return std::nullopt;
    const QString path = QStandardPaths::locate(QStandardPaths::ApplicationsLocation, entry,
                                                QStandardPaths::LocateFile);
    if (path.isEmpty() ||
        DesktopEntry(path, QStringLiteral("Terminal")) == QStringLiteral("true")) {
        return std::nullopt;
    }
    QStringList words = QProcess::splitCommand(DesktopEntry(path, QStringLiteral("Exec")));
    if (words.isEmpty()) return std::nullopt;
    const QString program = QStandardPaths::findExecutable(words.takeFirst());
    if (program.isEmpty()) return std::nullopt;
    words.removeIf([](const QString& word) { return word.startsWith(u'%'); });
    return Command{program, words + files};
}

std::optional<Command> InstalledEditor(const QStringList& files) {
    for (const KnownEditor& editor : kKnownEditors) {
        const QString program = QStandardPaths::findExecutable(QString::fromLatin1(editor.name));
        if (!program.isEmpty()) return Command{program, files};
    }
    return std::nullopt;
}

bool IsUtf8(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return true;
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(file.readAll());
    return !decoder.hasError();
}

// Some editors ask which encoding it is when a file is not UTF-8: they are told.
void TellEncoding(Command& editor, const QString& path) {
    if (IsUtf8(path)) return;
    const QString name = QFileInfo(editor.program).fileName();
    for (const KnownEditor& known : kKnownEditors) {
        if (known.singleByteOption != nullptr && name == QLatin1String(known.name)) {
            editor.arguments.prepend(QString::fromLatin1(known.singleByteOption));
        }
    }
}

std::optional<Command> Editor(const QStringList& files) {
    std::optional<Command> editor = DesktopEditor(files);
    if (!editor) editor = InstalledEditor(files);
    if (editor) TellEncoding(*editor, files.join(u' '));
    return editor;
}

std::optional<Command> HelpViewer(const QString& folder, const QStringList& files) {
    const QString name = QString::fromLatin1(kOurHelpViewer);
    QString program;
    if (!folder.isEmpty()) program = QStandardPaths::findExecutable(name, {folder});
    if (program.isEmpty()) program = QStandardPaths::findExecutable(name);
    if (program.isEmpty()) return std::nullopt;
    return Command{program, files};
}

std::optional<Command> Resolve(const QString& name, const QStringList& words,
                               const QString& viewerFolder) {
    if (name == QLatin1String(kEditor)) return Editor(words);
    if (name == QLatin1String(kHelpViewer)) return HelpViewer(viewerFolder, words);
    return Command{name, words};
}

}  // namespace

void DesktopPrograms::Start(std::string_view commandLine) {
    QStringList words = ToQt(commandLine).split(u' ', Qt::SkipEmptyParts);
    if (words.isEmpty()) {
        throw Error{ErrorNumber::FileNotFound, "the command line names no program"};
    }
    const QString name = words.takeFirst();
    const std::optional<Command> command = Resolve(name, words, ToQt(viewerFolder_));
    if (!command || !QProcess::startDetached(command->program, command->arguments)) {
        throw Error{ErrorNumber::FileNotFound, "cannot start " + FromQt(name)};
    }
}
