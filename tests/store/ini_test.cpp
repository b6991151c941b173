#include <functional>

#include <gtest/gtest.h>

#include "store/ini_edit.h"
#include "tests/floors.h"

namespace tarvok::test {
namespace {

TEST(IniText, ToleratesHandWrittenFiles) {
  const std::string long_value(3000, 'x');
  const std::tuple<std::string, std::string, std::string, std::string> cases[] = {
      {"[Port_Def]\nMax=500\n", "port_def", "MAX", "500"},
      {"[N\xC4me]\r\nK\xD6=1\r\n", "n\xE4me", "k\xF6", "1"},
      {"[a\xD7]\nk=1\n", "A\xF7", "k", ""},  // the multiplication sign has no small letter
      {" [ a ] \n\t k\t = \t v \n", "a", "k", "v"},
      {"[a]\nk=\"v w\"\nq='x'\nm=\"x'\no=\"\ne=\"\"\n", "a", "k", "v w"},
      {"[a]\nk=' v '\n", "a", "k", " v "},
      {"[a]\nk=\"x'\n", "a", "k", "\"x'"},
      {"[a]\nk=\"\n", "a", "k", "\""},
      {"[a]\nk=v ; no comment\n", "a", "k", "v ; no comment"},
      {"[a]\n;k=1\n ;k=2\nk=3\n", "a", "k", "3"},
      {"[a]\nnoise\n=x\nk=1=2\n", "a", "k", "1=2"},
      {"[a]\nk=1\nk=2\n[b]\nk=3\n[A]\nk=4\nj=5\n", "a", "k", "1"},
      {"[a]\nk=1\n[b]\n[a]\nj=5\n", "a", "j", ""},
      {"k=0\n[a]\nj=1", "", "k", ""},
      {"[a]\nj=1", "a", "j", "1"},
      {"[a\nk=1\n[b]\nk=2\n", "a", "k", "1"},
      {"[a]\nk=" + long_value + "\n", "a", "k", long_value.substr(0, 1999)},
      {std::string("[a]\nk=ab\0cd\n", 12), "a", "k", "ab"},
      {"[a]\nk=\x80\xFF\xE9\n", "a", "k", "\x80\xFF\xE9"},
      {std::string("\0\xFF[\n]=\n[a]\rk=1\n", 15), "a", "k", ""},
  };
  for (const auto& [text, section, key, value] : cases)
    EXPECT_EQ(IniText(text).Get(section, key), value) << text.substr(0, 60);
}

TEST(IniText, TellsEmptyKeyFromMissingKey) {
  const IniText text("[a]\nk=\n");
  EXPECT_TRUE(text.HasKey("A", "K"));
  EXPECT_FALSE(text.HasKey("a", "j"));
  EXPECT_TRUE(text.HasSection("A"));
  EXPECT_FALSE(text.HasSection("b"));
}

using Change = std::function<void(IniEdit&)>;

TEST(IniEdit, ChangesOnlyTheAffectedLines) {
  const Change set = [](IniEdit& e) { e.Set("A", "K", "new"); };
  const Change remove = [](IniEdit& e) { e.DeleteKey("A", "K"); };
  const Change remove_section = [](IniEdit& e) { e.DeleteSection("a"); };
  const std::tuple<std::string, Change, std::string> cases[] = {
      {"", set, "[A]\r\nK=new\r\n"},
      {"[a]\r\n", set, "[a]\r\nK=new\r\n"},
      {"[a]", set, "[a]\r\nK=new\r\n"},
      {"[a]\nj=1\n\n; note\n[b]\n", set, "[a]\nj=1\nK=new\n\n; note\n[b]\n"},
      {"[a]\nj=1", set, "[a]\nj=1\nK=new\n"},
      {"[b]\nk=1", set, "[b]\nk=1\n[A]\nK=new\n"},
      {"[b]\r\nk=1\r", set, "[b]\r\nk=1\r\n[A]\r\nK=new\r\n"},
      {"; x\r\n[a]\n k = old \nk=second\n[A]\nk=third\n", set, "; x\r\n[a]\nk=new\nk=second\n[A]\nk=third\n"},
      {"[a]\n k = 'new' \n", set, "[a]\n k = 'new' \n"},
      {"[a]\nk=1\nj=2\nK=3\n[A]\nk=4\n", remove, "[a]\nj=2\n[A]\nk=4\n"},
      {"[b]\nk=1\n", remove, "[b]\nk=1\n"},
      {"", remove, ""},
      {"[b]\n1=1\n[a]\n;x\nk=1\n[c]\n2=2\n[A]\nk=2\n", remove_section, "[b]\n1=1\n[c]\n2=2\n"},
      {"[a]\nk=1\n[b]\n", [](IniEdit& e) { e.DeleteSection("a"), e.Set("a", "j", "2"); }, "[b]\n[a]\nj=2\n"},
      {"[a]\nk=1\n", [](IniEdit& e) { e.DeleteKey("a", "k"), e.Set("a", "k", "2"); }, "[a]\nk=2\n"},
      {"[a]\nk=1\n", [](IniEdit& e) { e.Set("a", "z", "2"), e.DeleteKey("a", "z"), e.DeleteKey("b", "z"); },
       "[a]\nk=1\n"},
      {"[a]\n", [](IniEdit& e) { e.Set("a", "k", ""), e.Set("a", "j", std::string("x\0y", 3)); },
       "[a]\nk=\nj=x\n"},
      {"[a]\n", [](IniEdit& e) { e.Set("a", "k", "x\r\n[b]\r\nj=1"); }, "[a]\nk=x\n"},
  };
  for (const auto& [before, change, after] : cases) {
    const IniText base(before);
    IniEdit edit(base);
    change(edit);
    EXPECT_EQ(edit.Bytes(), after) << before;
  }
}

TEST(IniEdit, ReadsSeePendingChanges) {
  const IniText base("[a]\nk=1\nj=2\n");
  IniEdit edit(base);
  EXPECT_FALSE(edit.changed());
  edit.Set("a", "K", "3");
  edit.DeleteKey("A", "j");
  EXPECT_EQ(edit.Get("a", "k"), "3");
  EXPECT_EQ(edit.Get("a", "j"), "");
  const std::string_view seen = edit.View("a", "k");
  edit.Set("a", "k", "4");
  EXPECT_EQ(seen, "3");
  EXPECT_EQ(edit.Bytes(), "[a]\nk=4\n");
  edit.DeleteSection("a");
  EXPECT_EQ(edit.Get("a", "k"), "");
  edit.Set("a", "n", "4");
  EXPECT_EQ(edit.Get("a", "n"), "4");
  EXPECT_EQ(edit.Get("a", "k"), "");
}

TEST(IniEdit, KeepsThousandsOfChangesIntact) {
  std::string lines;
  std::string expected;
  for (int i = 0; i < 3000; ++i) {
    const std::string key = "key " + std::to_string(i * 7919 % 3000);
    if (i < 1000) lines += key + "=old\n";
    expected += key + "=" + std::string(static_cast<std::size_t>(i % 50), 'v') + "\n";
  }
  const IniText base("[a]\n" + lines + "; note\n[b]\n" + lines);
  const IniText wanted("[a]\n" + expected + "; note\n[b]\n" + lines + "[c]\n" + expected);
  IniEdit edit(base);
  for (const char* section : {"A", "c"}) {
    for (const IniText::Key& key : wanted.Keys(section)) edit.Set(section, key.name, key.value);
  }
  EXPECT_EQ(edit.Bytes(), wanted.bytes());
  EXPECT_TRUE(edit.TooLong().empty());
  edit.Set("c", "z", std::string(2000, 'v'));
  edit.Set("c", "a", std::string(2001, 'v'));
  EXPECT_EQ(edit.TooLong(), (std::vector<std::string>{"The value of c z is longer than 1999 characters",
                                                      "The value of c a is longer than 1999 characters"}));
}

}  // namespace
}  // namespace tarvok::test
