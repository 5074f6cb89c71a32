// TToolkitTexts: the texts that the window toolkit itself shows, in the language of the catalogue.
// The application's own texts do not come through here.
#pragma once

#include <QTranslator>

#include "common/catalogue.h"

namespace zoka {

/// In force as long as it lives. File panels, context menus and standard buttons take their texts
/// from it. Window thread.
class TToolkitTexts final : public QTranslator {
 public:
  /// `catalogue` outlives it.
  explicit TToolkitTexts(const TCatalogue& catalogue);
  ~TToolkitTexts() override;

  /// All that is open gets its texts anew.
  void LanguageChanged();

  bool isEmpty() const override { return false; }
  /// The text for one of the toolkit's; null for those that it does not know.
  QString translate(const char* context, const char* sourceText, const char* disambiguation,
                    int number) const override;

 private:
  void Install();

  const TCatalogue& mCatalogue;
};

}  // namespace zoka
