// What the application tells the desktop about lists: at its start, and when the user asks for it.
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#include "app/list_mime.h"
#include "tests/window/start_rig.h"

namespace zoka {
namespace {

class TListMimeTest : public TStartRig {
 protected:
  TListMimeTest() {
    mDesktop.dataHome = QString::fromStdString(mFolder.Path("data"));
    mDesktop.configHome = QString::fromStdString(mFolder.Path("config"));
    mDesktop.dataFolders =
        QStringList{mDesktop.dataHome, QString::fromStdString(mFolder.Path("all"))};
    mDesktop.program = "/opt/zoka basic/zoka-basic";
  }
  void WriteBelow(const std::string& path, const std::string& bytes) {
    std::filesystem::create_directories(std::filesystem::path(mFolder.Path(path)).parent_path());
    mFolder.Write(path, bytes);
  }
  bool Has(const std::string& path) { return std::filesystem::exists(mFolder.Path(path)); }
};

TEST_F(TListMimeTest, TheFirstStartMakesTheTypeKnown) {
  Start();
  const std::string xml = mFolder.Read("data/mime/packages/zoka-basic.xml");
  for (const char* part :
       {"<mime-type type=\"text/x-BASIC-source-code\">", "<glob pattern=\"*.bas\"/>",
        "<alias type=\"text/x-basic-source-code\"/>", "<comment>BASIC Source Code</comment>"}) {
    EXPECT_NE(xml.find(part), xml.npos) << part;
  }
  EXPECT_EQ(mStarted, QStringList{"update-mime-database " + mDesktop.dataHome + "/mime"});
  EXPECT_FALSE(Has("data/applications"));
  EXPECT_FALSE(Has("config/mimeapps.list"));
}

TEST_F(TListMimeTest, AKnownTypeIsLeftAlone) {
  WriteBelow("all/mime/text/x-basic-source-code.xml", "");
  Start();
  EXPECT_FALSE(Has("data/mime"));
  EXPECT_TRUE(mStarted.isEmpty());
}

TEST_F(TListMimeTest, RegisteringAsksFirst) {
  Start();
  mStarted.clear();
  AnswerNext(Qt::Key_Escape);
  Choose("rmim");
  EXPECT_EQ(mAsked,
            "Register the type of BASIC lists (.bas files) on this desktop, and Zoka-BASIC as the "
            "program that opens them?\n\n* Zoka-BASIC *");
  EXPECT_EQ(Buttons(), "Cancel OK");
  EXPECT_FALSE(Has("data/applications"));
  EXPECT_TRUE(mStarted.isEmpty());
}

TEST_F(TListMimeTest, RegisteringWritesLauncherIconsAndDefault) {
  WriteBelow("config/mimeapps.list",
             "[Added Associations]\ntext/plain=a.desktop;\n\n[Default Applications]\n"
             "text/plain=a.desktop\ntext/x-BASIC-source-code=other.desktop\n\n[More]\nx=1\n");
  Start();
  mStarted.clear();
  AnswerNext(Qt::Key_Return);
  Choose("rmim");
  EXPECT_EQ(Status(), " BASIC lists are registered. They open with this program from now on.");
  EXPECT_EQ(mFolder.Read("config/mimeapps.list"),
            "[Added Associations]\ntext/plain=a.desktop;\n\n[Default Applications]\n"
            "text/x-basic-source-code=zoka-basic.desktop\n"
            "text/plain=a.desktop\ntext/x-BASIC-source-code=zoka-basic.desktop\n\n[More]\nx=1\n");
  const std::string launcher = mFolder.Read("data/applications/zoka-basic.desktop");
  EXPECT_NE(launcher.find("\nExec=\"/opt/zoka basic/zoka-basic\" %f\n"), launcher.npos);
  EXPECT_NE(launcher.find("\nMimeType=text/x-BASIC-source-code;text/x-basic-source-code;\n"),
            launcher.npos);
  const QString icons = mDesktop.dataHome + "/icons/hicolor/";
  EXPECT_EQ(QImage(icons + "32x32/mimetypes/text-x-basic-source-code.png").size(), QSize(32, 32));
  EXPECT_EQ(QImage(icons + "16x16/mimetypes/text-x-basic-source-code.png").size(), QSize(16, 16));
  EXPECT_EQ(QImage(icons + "48x48/apps/zoka-basic.png").size(), QSize(48, 48));
  EXPECT_EQ(mStarted,
            (QStringList{"update-mime-database " + mDesktop.dataHome + "/mime",
                         "update-desktop-database " + mDesktop.dataHome + "/applications"}));
}

TEST_F(TListMimeTest, WhatCannotBeWrittenIsSaid) {
  mDesktop.dataHome = "/dev/null/data";
  mDesktop.dataFolders = QStringList{mDesktop.dataHome};
  Start();
  AnswerNext(Qt::Key_Return);
  Choose("rmim");
  EXPECT_EQ(Status(),
            " BASIC lists cannot be registered: your desktop's settings cannot be written.");
  EXPECT_TRUE(mStarted.isEmpty());
}

TEST_F(TListMimeTest, APathIsQuotedAsLaunchersWantIt) {
  EXPECT_EQ(launcher_quoted("/usr/bin/zoka-basic"), "\"/usr/bin/zoka-basic\"");
  EXPECT_EQ(launcher_quoted("/a b/100%"), "\"/a b/100%%\"");
  EXPECT_EQ(launcher_quoted("a\"b"), "\"a\\\\\"b\"");
  EXPECT_EQ(launcher_quoted("a$b`c"), "\"a\\\\$b\\\\`c\"");
  EXPECT_EQ(launcher_quoted("a\\b"), "\"a\\\\\\\\b\"");
}

TEST_F(TListMimeTest, DefaultsOfAnEmptyListAndOfOneWithoutTheGroup) {
  EXPECT_EQ(with_default_application("", "t/x", "z.desktop"),
            "[Default Applications]\nt/x=z.desktop\n");
  EXPECT_EQ(with_default_application("[A]\nb=c", "t/x", "z.desktop"),
            "[A]\nb=c\n[Default Applications]\nt/x=z.desktop\n");
  EXPECT_EQ(with_default_application("[Default Applications]\n[A]\nt/x=1\n", "t/x", "z.desktop"),
            "[Default Applications]\nt/x=z.desktop\n[A]\nt/x=1\n");
}

TEST_F(TListMimeTest, TheRealToolTakesTheType) {
  if (QStandardPaths::findExecutable("update-mime-database").isEmpty()) GTEST_SKIP();
  mDesktop.start = [](const QString& program, const QStringList& arguments) {
    return QProcess::execute(program, arguments) == 0;
  };
  ASSERT_TRUE(TBasicListMime(mDesktop).InstallBasicListMime());
  EXPECT_TRUE(TBasicListMime(mDesktop).IsInstalled());
  EXPECT_NE(mFolder.Read("data/mime/globs2").find(":text/x-BASIC-source-code:*.bas"),
            std::string::npos);
  EXPECT_NE(mFolder.Read("data/mime/aliases").find("text/x-basic-source-code "), std::string::npos);
}

}  // namespace
}  // namespace zoka
