#include <cstdlib>

#include <QCoreApplication>
#include <gmock/gmock.h>

#include "tests/io/io_bench.h"

int main(int argc, char** argv) {
  // Qt looks up the user's settings once per process, so all tests share one folder in place of the user's.
  const tarvok::test::TempFolder config;
  ::setenv("XDG_CONFIG_HOME", (config / "").c_str(), 1);
  const QCoreApplication application(argc, argv);
  testing::InitGoogleMock(&argc, argv);
  return RUN_ALL_TESTS();
}
