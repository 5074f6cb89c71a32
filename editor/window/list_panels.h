// The file panels of the list: open, with the encoding and the place of insertion, and save.
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>

#include "common/context.h"
#include "common/message.h"

namespace zoka {

/// Notes in a message of files which keys are held down now: when the message's turn comes others
/// may be. Of what comes from outside (not `isLocal`) the Control key says nothing.
void add_held_modifiers(TMessage* message, bool isLocal);

/// Window thread. Shown again and again, without the user's other work being blocked.
class TZokaOpenPanel final : public QFileDialog {
 public:
  TZokaOpenPanel(QWidget* parent, const TEngineContext& context);

  /// Shows it, with the box cleared; the marked encoding stays as it was.
  void Appear();
  void SetLabels();
  /// Marks the encoding of the preferences.
  void SetDefaultEncoding();
  void ClearCBoxAdd() { mAdd->setChecked(false); }
  /// The message of the chosen file.
  TMessage Message(const QString& path) const;

  QComboBox* Encoding() { return mEncoding; }
  QCheckBox* CBoxAdd() { return mAdd; }

 private:
  const TEngineContext& mContext;
  QLabel* mEncodingLabel;
  QComboBox* mEncoding;
  QCheckBox* mAdd;
};

/// The panel that asks for a list's new name; it adds the extension and asks before replacing.
class TZokaSavePanel final : public QFileDialog {
 public:
  TZokaSavePanel(QWidget* parent, const TEngineContext& context);
  void SetLabels();

 private:
  const TEngineContext& mContext;
};

}  // namespace zoka
