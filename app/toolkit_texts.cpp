// The toolkit's texts and their keys.
#include "app/toolkit_texts.h"

#include <QCoreApplication>
#include <QEvent>
#include <algorithm>
#include <iterator>
#include <string_view>

namespace zoka {
namespace {

/// Texts that are their own keys. An & stands in front of the letter of the keyboard.
constexpr const char* TEXTS[] = {
    "Look in:",
    "Back",
    "Go back",
    "Forward",
    "Go forward",
    "Parent Directory",
    "Go to the parent directory",
    "Create New Folder",
    "Create a New Folder",
    "List View",
    "Change to list view mode",
    "Detail View",
    "Change to detail view mode",
    "Sidebar",
    "List of places and bookmarks",
    "Files",
    "Files of type:",
    "Find Directory",
    "&Open",
    "&Choose",
    "&Save",
    "Show ",
    "&Rename",
    "&Delete",
    "Show &hidden files",
    "&New Folder",
    "New Folder",
    "Directory:",
    "File &name:",
    "Delete",
    "Could not delete directory.",
    "Recent Places",
    "Remove",
    "Are you sure you want to delete '%1'?",
    "My Computer",
    "Computer",
    "All files (*)",
    "All Files (*)",
    "Directories",
    "Name",
    "Size",
    "Type",
    "Kind",
    "Date Modified",
    "Folder",
    "Drive",
    "Shortcut",
    "Unknown",
    "&Yes",
    "&No",
    "Discard",
    "Apply",
    "Retry",
    "Ignore",
    "Abort",
    "Reset",
    "&Undo",
    "&Redo",
    "Cu&t",
    "&Copy",
    "&Paste",
    "Scroll here",
    "Top",
    "Bottom",
    "Left edge",
    "Right edge",
    "Page up",
    "Page down",
    "Page left",
    "Page right",
    "Scroll up",
    "Scroll down",
    "Scroll left",
    "Scroll Left",
    "Scroll Right",
    "Scroll right",
    "Open",
    "Save",
    "Save As",
    "Close",
    "Cancel",
    "OK",
    "Help",
    "File",
    "Select All",
};

/// Texts of several lines, which no key has.
struct TLongText {
  std::string_view text;
  const char* key;
};
constexpr TLongText LONG_TEXTS[] = {
    {"%1\nDirectory not found.\nPlease verify the correct directory name was given.",
     "@Panel_No_Folder@"},
    {"%1\nFile not found.\nPlease verify the correct file name was given.", "@Panel_No_File@"},
    {"%1 already exists.\nDo you want to replace it?", "@Panel_Replace@"},
    {"'%1' is write protected.\nDo you want to delete it anyway?", "@Panel_Delete_Protected@"},
};

/// The key of a text; null for one that has none.
const char* key_of(std::string_view text) {
  const auto is = [text](std::string_view known) { return known == text; };
  const auto* const found = std::find_if(std::begin(TEXTS), std::end(TEXTS), is);
  if (found != std::end(TEXTS)) return *found;
  const auto* const lines =
      std::find_if(std::begin(LONG_TEXTS), std::end(LONG_TEXTS),
                   [text](const TLongText& known) { return known.text == text; });
  return lines != std::end(LONG_TEXTS) ? lines->key : nullptr;
}

}  // namespace

TToolkitTexts::TToolkitTexts(const TCatalogue& catalogue) : mCatalogue(catalogue) {
  Install();
}

TToolkitTexts::~TToolkitTexts() {
  QCoreApplication::removeTranslator(this);
}

void TToolkitTexts::LanguageChanged() {
  // Installing is what makes the toolkit ask again.
  QCoreApplication::removeTranslator(this);
  Install();
}

void TToolkitTexts::Install() {
  QCoreApplication::installTranslator(this);
  // Now, and not when windows have given their parts texts of their own.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
}

QString TToolkitTexts::translate(const char*, const char* sourceText, const char*, int) const {
  const char* const key = sourceText != nullptr ? key_of(sourceText) : nullptr;
  return key != nullptr ? QString::fromStdString(mCatalogue.GetString(key)) : QString();
}

}  // namespace zoka
