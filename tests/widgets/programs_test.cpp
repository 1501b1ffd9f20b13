#include "platform/programs.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace {

/// A folder that is the whole PATH, with programs that write their arguments
/// into a file, one on each line.
class ProgramsTest : public ::testing::Test {
  protected:
    ProgramsTest() {
        path_ = qgetenv("PATH");
        dataDirs_ = qgetenv("XDG_DATA_DIRS");
        dataHome_ = qgetenv("XDG_DATA_HOME");
        qputenv("PATH", folder_.path().toUtf8());
        qputenv("XDG_DATA_DIRS", folder_.path().toUtf8());
        qputenv("XDG_DATA_HOME", folder_.path().toUtf8());
    }
    ~ProgramsTest() override {
        qputenv("PATH", path_);
        qputenv("XDG_DATA_DIRS", dataDirs_);
        qputenv("XDG_DATA_HOME", dataHome_);
    }

    void Write(const QString& name, const QByteArray& text, bool executable) {
        const QString path = folder_.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        if (executable) file.setPermissions(file.permissions() | QFile::ExeOwner);
    }
    void Install(const char* name) {
        const QByteArray out = folder_.filePath(QStringLiteral("arguments")).toUtf8();
        Write(QString::fromLatin1(name),
              "#!/bin/sh\n{ echo " + QByteArray(name) +
                  "; for a in \"$@\"; do echo \"$a\"; done; } > " + out + ".part\n/bin/mv " + out +
                  ".part " + out + "\n",
              true);
    }
    std::string Arguments() const {
        const QString path = folder_.filePath(QStringLiteral("arguments"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return QFile::exists(path); }, 10'000));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll().toStdString();
    }
    static ErrorNumber Failure(std::string_view commandLine) {
        try {
            DesktopPrograms().Start(commandLine);
        } catch (const Error& error) {
            return error.Number();
        }
        return ErrorNumber::None;
    }

    QTemporaryDir folder_;
    QByteArray path_, dataDirs_, dataHome_;
};

TEST_F(ProgramsTest, NotePadIsAnEditorThatIsInstalled) {
    Install("mousepad");
    DesktopPrograms().Start("NotePad.exe  /tmp/FonderLogg.txt");
    EXPECT_EQ(Arguments(), "mousepad\n/tmp/FonderLogg.txt\n");
}

TEST_F(ProgramsTest, NotePadIsTheDesktopsOwnEditorFirst) {
    Install("mousepad");
    Install("mineditor");
    Write(QStringLiteral("xdg-mime"), "#!/bin/sh\necho mineditor.desktop\n", true);
    Write(QStringLiteral("applications/mineditor.desktop"),
          "[Desktop Entry]\nExec=mineditor --nytt %U\n[Desktop Action x]\nExec=fel\n", false);
    DesktopPrograms().Start("NotePad.exe  /tmp/FonderLogg.txt");
    EXPECT_EQ(Arguments(), "mineditor\n--nytt\n/tmp/FonderLogg.txt\n");
}

TEST_F(ProgramsTest, AnEditorThatNeedsATerminalIsNotUsed) {
    Install("mousepad");
    Write(QStringLiteral("xdg-mime"), "#!/bin/sh\necho vi.desktop\n", true);
    Write(QStringLiteral("applications/vi.desktop"), "[Desktop Entry]\nExec=vi %f\nTerminal=true\n",
          false);
    DesktopPrograms().Start("NotePad.exe  /tmp/a.txt");
    EXPECT_EQ(Arguments(), "mousepad\n/tmp/a.txt\n");
}

TEST_F(ProgramsTest, AnEditorIsToldThatAFileIsInTheSingleByteCodePage) {
    const std::string log = FromQt(folder_.filePath(QStringLiteral("logg.txt")));
    Write(QStringLiteral("logg.txt"), "26-11-16\r\nL\xF6nen\r\n", false);
    Install("mousepad");
    DesktopPrograms().Start("NotePad.exe  " + log);
    EXPECT_EQ(Arguments(), "mousepad\n--encoding=WINDOWS-1252\n" + log + "\n");
}

TEST_F(ProgramsTest, TheDesktopsEditorIsToldItBesideItsOwnOptions) {
    const std::string log = FromQt(folder_.filePath(QStringLiteral("logg.txt")));
    Write(QStringLiteral("logg.txt"), "L\xF6nen", false);
    Install("l3afpad");
    Write(QStringLiteral("xdg-mime"), "#!/bin/sh\necho l3afpad.desktop\n", true);
    Write(QStringLiteral("applications/l3afpad.desktop"),
          "[Desktop Entry]\nExec=l3afpad --jump=1 %f\n", false);
    DesktopPrograms().Start("NotePad.exe  " + log);
    EXPECT_EQ(Arguments(), "l3afpad\n--codeset=WINDOWS-1252\n--jump=1\n" + log + "\n");
}

TEST_F(ProgramsTest, AnEditorIsToldNothingOfAFileInUtf8) {
    const std::string notes = FromQt(folder_.filePath(QStringLiteral("mina.txt")));
    Write(QStringLiteral("mina.txt"), "L\xC3\xB6nen", false);
    Install("mousepad");
    DesktopPrograms().Start("NotePad.exe  " + notes);
    EXPECT_EQ(Arguments(), "mousepad\n" + notes + "\n");
}

TEST_F(ProgramsTest, AnEditorThatFindsTheEncodingItselfIsToldNothing) {
    const std::string log = FromQt(folder_.filePath(QStringLiteral("logg.txt")));
    Write(QStringLiteral("logg.txt"), "L\xF6nen", false);
    Install("geany");
    DesktopPrograms().Start("NotePad.exe  " + log);
    EXPECT_EQ(Arguments(), "geany\n" + log + "\n");
}

TEST_F(ProgramsTest, APathWithBlanksArrivesAsSeveralWords) {
    Install("gedit");
    DesktopPrograms().Start("NotePad.exe  /tmp/Mina Fonder/FonderLogg.txt");
    EXPECT_EQ(Arguments(), "gedit\n/tmp/Mina\nFonder/FonderLogg.txt\n");
}

TEST_F(ProgramsTest, WinHelpIsOurOwnHelpViewer) {
    Install("kvarnbo-hjalp");
    DesktopPrograms().Start("WinHlp32.exe /tmp/Kvarnbo.hlp");
    EXPECT_EQ(Arguments(), "kvarnbo-hjalp\n/tmp/Kvarnbo.hlp\n");
}

TEST_F(ProgramsTest, TheInstalledHelpViewerIsPreferred) {
    Install("kvarnbo-hjalp");
    Install("libexec/kvarnbo-hjalp");
    const std::string folder = FromQt(folder_.filePath(QStringLiteral("libexec")));
    DesktopPrograms(folder).Start("WinHlp32.exe /tmp/Kvarnbo.hlp");
    EXPECT_EQ(Arguments(), "libexec/kvarnbo-hjalp\n/tmp/Kvarnbo.hlp\n");
}

TEST_F(ProgramsTest, WithoutAnEditorItFails) {
    EXPECT_EQ(Failure("NotePad.exe  /tmp/a.txt"), ErrorNumber::FileNotFound);
}

TEST_F(ProgramsTest, AnotherProgramIsStartedAsItIsCalled) {
    Install("annat");
    DesktopPrograms().Start("annat ett  två");
    EXPECT_EQ(Arguments(), "annat\nett\ntvå\n");
}

TEST_F(ProgramsTest, AProgramThatIsMissingFails) {
    EXPECT_EQ(Failure("finns-inte x"), ErrorNumber::FileNotFound);
    EXPECT_EQ(Failure("   "), ErrorNumber::FileNotFound);
}

}  // namespace
