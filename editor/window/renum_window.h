// TRenumWindow: the dialog that asks from which line on, with which number and in which steps a
// list is to be renumbered. The renumbering itself is the document's.
#pragma once

#include <array>

#include "common/window/dialog_window.h"

namespace zoka {

/// Where the field of the old line is left empty: line 0, which is put right as any number below 1
/// is. The other fields then have the numbers of editor/renumber.h.
constexpr int32_t DEFAULT_OLD_LINE = 0;

/// Sends rnmr with "NewLine", "OldLine" and "Step".
class TRenumWindow final : public TDialogWindow {
 public:
  TRenumWindow(QWidget* parent, const TEngineContext& context, THandlerRegistry& registry);

  void Appear() override;
  void SetLabels() override;
  /// The three fields in their order.
  QLineEdit* Field(size_t index) { return mFields.at(index); }
  void ApplyRenum();

 private:
  static constexpr size_t FIELD_COUNT = 3;

  /// The number of a field; one below 1 becomes 1, in the field too.
  static int32_t CompoToParam(QLineEdit& field, int32_t whenEmpty);

  std::array<QLabel*, FIELD_COUNT> mLabels{};
  std::array<QLineEdit*, FIELD_COUNT> mFields{};
  QPushButton* mCancel;
  QPushButton* mOk;
};

}  // namespace zoka
