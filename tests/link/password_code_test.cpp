#include "link/password_code.h"

#include <gtest/gtest.h>

namespace tarvok::test {
namespace {

TEST(Password, IsPackedAsItTravels) {
  EXPECT_EQ(PackPassword("1234"), (PackedPassword{0x12, 0x34, 0xFF}));
  EXPECT_EQ(PackPassword("120"), (PackedPassword{0xF1, 0x2A, 0xFF}));
  for (const char* none : {"", "1234567", "12a", "1 2", "-1"}) EXPECT_FALSE(PackPassword(none)) << none;
}

TEST(Password, IsOverwrittenWhereItLay) {
  std::string password = "123456";
  const char* lay = password.data();
  password.resize(2);  // the rest still lies behind the end
  Wipe(password);
  EXPECT_TRUE(password.empty());
  EXPECT_EQ(std::string(lay, 6), std::string(6, '\0'));
}

}  // namespace
}  // namespace tarvok::test
