// Runs the window tests: one application object for all of them.
#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>
#include <cstring>

#include "tests/window/port_process.h"

int main(int argc, char** argv) {
  if (argc == 3 && std::strcmp(argv[1], zoka::PORT_PROCESS_OPTION) == 0) {
    QCoreApplication application(argc, argv);
    return zoka::run_port_process(argv[2]);
  }
  testing::InitGoogleTest(&argc, argv);
  // Listing the tests needs no screen.
  if (testing::GTEST_FLAG(list_tests)) return RUN_ALL_TESTS();
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  std::setlocale(LC_NUMERIC, "C");
  return RUN_ALL_TESTS();
}
