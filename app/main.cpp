// Starts the window application.
#include "app/start_up.h"

int main(int argc, char** argv) {
  return zoka::run_application(argc, argv);
}
