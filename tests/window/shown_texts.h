// All texts that a window shows or tells, each with the place where it is, so that a window can be
// compared with itself in another language.
#pragma once

#include <QString>
#include <QWidget>
#include <vector>

namespace zoka {

/// A text and where it is: the classes and numbers of the controls on the way to it.
struct TShownText {
  QString place;
  QString text;
};

/// Titles, labels, items, tool tips, names for screen readers, menus with their submenus; hidden
/// controls too. What the user has written or chosen (lists, file names, fonts) is no text of the
/// window and is left out.
std::vector<TShownText> shown_texts(const QWidget& window);

/// A text without what the accelerator format and the toolkit add to it: "File(&F)" is "File",
/// "Open(&O)..." is "Open...".
QString plain_text(QString text);

}  // namespace zoka
