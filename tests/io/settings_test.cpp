#include <cstdlib>
#include <fstream>

#include <QCoreApplication>
#include <gmock/gmock.h>

#include "io/qt_settings.h"
#include "tests/floors.h"
#include "tests/io/io_bench.h"

namespace tarvok::test {
namespace {

std::string SettingsFile() {
  return std::string(std::getenv("XDG_CONFIG_HOME")) + "/Tarvok config/Tarvok config.ini";
}

TEST(Settings, KeepEveryByte) {
  std::string all;
  for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
  const std::vector<std::string> kValues = {"",
                                            "a, b;c=\"d\"",
                                            " blank ",
                                            "@at",
                                            "@ByteArray(x)",
                                            "%41\\x41\\n",
                                            "gr\xC3\xBC\xC3\x9F",
                                            "\xEF\xBB\xBF BOM",
                                            all};
  for (std::size_t i = 0; i < kValues.size(); ++i)
    QtSettings().Set("Recent Files", "Recent" + std::to_string(i), kValues[i]);
  for (std::size_t i = 0; i < kValues.size(); ++i)
    EXPECT_EQ(QtSettings().Get("Recent Files", "Recent" + std::to_string(i)), kValues[i]) << i;
  EXPECT_EQ(QtSettings().Get("Recent Files", "none"), "");
  EXPECT_TRUE(std::filesystem::exists(SettingsFile()));
}

TEST(Settings, WriteChangesTogether) {
  QtSettings settings;
  settings.Set("Columns", "frm", "1");
  QCoreApplication::processEvents();
  const std::string written = SettingsFile() + ".written";
  const auto is_written_anew = [&](std::initializer_list<const char*> widths) {
    std::filesystem::remove(written);
    std::filesystem::create_hard_link(SettingsFile(), written);
    for (const char* width : widths) settings.Set("Columns", std::string("frm") + width, width);
    EXPECT_TRUE(std::filesystem::equivalent(SettingsFile(), written));  // each write is a new file
    QCoreApplication::processEvents();
    return !std::filesystem::equivalent(SettingsFile(), written);
  };
  EXPECT_TRUE(is_written_anew({"120", "121", "122"}));
  EXPECT_FALSE(is_written_anew({"120", "121"}));
}

TEST(Settings, ReadHandWrittenValues) {
  std::filesystem::create_directories(std::filesystem::path(SettingsFile()).parent_path());
  std::ofstream(SettingsFile()) << "[Serial Ports]\nCom1=/dev/ttyUSB0\nCom2 = /home/gr\xC3\xBC\xC3\x9F, "
                                   "x\n[Serial%20Ports]\nCom4=/dev/x\n";
  EXPECT_EQ(QtSettings().Get("Serial Ports", "Com1"), "/dev/ttyUSB0");
  EXPECT_EQ(QtSettings().Get("Serial Ports", "Com2"), "/home/gr\xC3\xBC\xC3\x9F,x");
  EXPECT_EQ(QtSettings().Get("Serial Ports", "Com4"), "/dev/x");
}

}  // namespace
}  // namespace tarvok::test
