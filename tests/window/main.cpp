// Runs the window tests: one application object for all of them.
#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // Listing the tests needs no screen.
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return RUN_ALL_TESTS();
}
