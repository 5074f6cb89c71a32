// What is written for the desktop, and where.
#include "app/list_mime.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "app/logo.h"
#include "common/context.h"
#include "common/file_save.h"
#include "editor/list_document.h"

namespace zoka {
namespace {

/// Looked up as it is spelt, and some programs know lower case only; so the type has that as a
/// second name. The pattern holds for any case of the extension.
constexpr const char MIME_XML[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<mime-info xmlns="http://www.freedesktop.org/standards/shared-mime-info">
  <mime-type type="text/x-BASIC-source-code">
    <!-- BASIC Source Code (.bas file) -->
    <comment>BASIC Source Code</comment>
    <comment xml:lang="ja">BASICソースコード</comment>
    <sub-class-of type="text/plain"/>
    <alias type="text/x-basic-source-code"/>
    <icon name="text-x-basic-source-code"/>
    <glob pattern="*.bas"/>
  </mime-type>
</mime-info>
)";

/// The desktop keeps the description of a type under its name in lower case.
constexpr const char TYPE_FILE[] = "/mime/text/x-basic-source-code.xml";
constexpr const char DEFAULTS_GROUP[] = "[Default Applications]";
constexpr int LARGE_ICON = 32;
constexpr int MINI_ICON = 16;
constexpr int PROGRAM_ICON = 48;

bool write_file(const QString& path, const QByteArray& bytes) {
  if (!QDir().mkpath(QFileInfo(path).path())) return false;
  return save_file_atomically(QFile::encodeName(path).toStdString(),
                              {bytes.constData(), static_cast<size_t>(bytes.size())});
}

bool write_icon(const QString& path, const QImage& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  return buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, "PNG") &&
         write_file(path, bytes);
}

QString list_type() {
  return QString::fromLatin1(LIST_MIME_TYPE);
}

}  // namespace

QString launcher_quoted(const QString& path) {
  QString quoted = "\"";
  for (const QChar c : path) {
    // First for the command line within quotes, then for the file's own escapes.
    if (c == '"' || c == '`' || c == '$') quoted += "\\\\";
    if (c == '\\') quoted += "\\\\\\";
    if (c == '%') quoted += '%';
    quoted += c;
  }
  return quoted + '"';
}

QString with_default_application(const QString& text, const QString& type,
                                 const QString& launcher) {
  QStringList lines = text.split('\n');
  if (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
  const QString entry = type + "=" + launcher;
  qsizetype group = -1;
  for (qsizetype i = 0; i < lines.size(); ++i) {
    if (lines[i].trimmed() == DEFAULTS_GROUP) group = i;
  }
  if (group < 0) {
    lines.append({DEFAULTS_GROUP, entry});
    return lines.join('\n') + '\n';
  }
  for (qsizetype i = group + 1; i < lines.size() && !lines[i].startsWith('['); ++i) {
    if (lines[i].section('=', 0, 0).trimmed() != type) continue;
    lines[i] = entry;
    return lines.join('\n') + '\n';
  }
  lines.insert(group + 1, entry);
  return lines.join('\n') + '\n';
}

bool TBasicListMime::IsInstalled() const {
  for (const QString& folder : mDesktop.dataFolders) {
    if (QFileInfo::exists(folder + TYPE_FILE)) return true;
  }
  return false;
}

bool TBasicListMime::SetBasicListMimeInfo() const {
  if (mDesktop.dataHome.isEmpty()) return false;
  const QString folder = mDesktop.dataHome + "/mime";
  if (!write_file(folder + "/packages/" + DESKTOP_NAME + ".xml", MIME_XML)) return false;
  // Where the tool is missing the desktop has no types to speak of.
  mDesktop.start("update-mime-database", {folder});
  return true;
}

bool TBasicListMime::InstallBasicListMime() const {
  return IsInstalled() || SetBasicListMimeInfo();
}

bool TBasicListMime::WriteIcons() const {
  const auto place = [this](int size, const char* kind, const char* name) {
    return mDesktop.dataHome +
           QString("/icons/hicolor/%1x%1/%2/%3.png").arg(QString::number(size), kind, name);
  };
  return write_icon(place(LARGE_ICON, "mimetypes", LIST_ICON), doc_icon(LARGE_ICON)) &&
         write_icon(place(MINI_ICON, "mimetypes", LIST_ICON), doc_icon(MINI_ICON)) &&
         write_icon(place(PROGRAM_ICON, "apps", DESKTOP_NAME), app_icon(PROGRAM_ICON));
}

bool TBasicListMime::WriteLauncher() const {
  const QString text = QString(
                           "[Desktop Entry]\nType=Application\nName=%1\n"
                           "Comment=Write and run line-numbered BASIC programs\n"
                           "Comment[ja]=行番号付きBASICのプログラムを書いて動かす\n"
                           "Exec=%2 %f\nIcon=%3\nTerminal=false\n"
                           "Categories=Development;IDE;Education;\nMimeType=%4;%5;\n")
                           .arg(APP_NAME, launcher_quoted(mDesktop.program), DESKTOP_NAME,
                                list_type(), list_type().toLower());
  const QString folder = mDesktop.dataHome + "/applications";
  if (!write_file(folder + "/" + DESKTOP_NAME + ".desktop", text.toUtf8())) return false;
  mDesktop.start("update-desktop-database", {folder});
  return true;
}

bool TBasicListMime::WriteDefault() const {
  if (mDesktop.configHome.isEmpty()) return false;
  const QString path = mDesktop.configHome + "/mimeapps.list";
  QString text;
  if (QFile file(path); file.open(QIODevice::ReadOnly)) {
    text = QString::fromUtf8(file.readAll());
  } else if (file.exists()) {
    return false;
  }
  const QString launcher = QString(DESKTOP_NAME) + ".desktop";
  text = with_default_application(text, list_type(), launcher);
  return write_file(path, with_default_application(text, list_type().toLower(), launcher).toUtf8());
}

bool TBasicListMime::RegistBasicListMime() const {
  return !mDesktop.dataHome.isEmpty() && SetBasicListMimeInfo() && WriteIcons() &&
         WriteLauncher() && WriteDefault();
}

}  // namespace zoka
