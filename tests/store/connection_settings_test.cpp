#include "store/connection_settings.h"

#include <gtest/gtest.h>

#include "tests/floors.h"
#include "tests/store/memory_files.h"

namespace tarvok::test {
namespace {

constexpr const char* kFile = "/p.tvk";

ConnectionSettings Read(MemoryFiles& files, const std::string& keys) {
  files.Put(kFile, "[Chk_Tarvok]\n" + keys);
  ProjectStore store(files);
  ConnectionSettings settings;
  EXPECT_TRUE(ReadConnection(store, kFile, ConnectionForm::kTransfer, settings).ok());
  return settings;
}

TEST(ConnectionSettings, ReadsAndWritesBackItsDefaults) {
  MemoryFiles files;
  ConnectionSettings settings = Read(files, "");
  EXPECT_EQ(settings.Mode(), LinkMode::kServer);
  EXPECT_EQ(settings.SerialPort(), 1);
  EXPECT_EQ(settings.bps, "9600,n,8,1");
  EXPECT_EQ(settings.PbxId(), 15);
  EXPECT_EQ(files.Bytes(kFile), "[Chk_Tarvok]\nBPS=9600,n,8,1\n");

  settings = Read(files, "BPS=9600\nDCPU=0\nPID=3\nCID=-1\nPort=4294967297\nCUT=256\ncompare=2\n");
  EXPECT_EQ(settings.PbxId(), 15);
  EXPECT_EQ(settings.CardId(), 15);
  EXPECT_GT(settings.SerialPort(), 8);  // values far out of range must not wrap around
  EXPECT_EQ(settings.ChunkSize(), 0);
  EXPECT_FALSE(settings.Compares());
  EXPECT_EQ(files.Bytes(kFile).find("CID=0"), std::string::npos);

  settings = Read(files, "BPS=9600\nDCPU=1\nPID=16\nCID=-1\ncompare=1\n");
  EXPECT_EQ(settings.PbxId(), 15);
  EXPECT_EQ(settings.CardId(), 0);
  EXPECT_TRUE(settings.Compares());
  EXPECT_NE(files.Bytes(kFile).find("CID=0"), std::string::npos);
}

TEST(ConnectionSettings, Summaries) {
  MemoryFiles files;
  const std::pair<const char*, std::vector<std::string>> cases[] = {
      {"By=1\nBPS=9600\nPort=2\n", {"Send by Serial (Direct)", "COM2, 9600"}},
      {"By=2\nBPS=9600\nPortM=3\nTel=0,12\n", {"Send by Modem (Direct)", "COM3, 0,12"}},
      {"By=3\nBPS=9600\nDCPU=1\nPID=2\nCID=7\nIPHost=h\nIPPort=1\n",
       {"Send by LAN to Serial (Link)", "PBX ID:2, Card ID:7", "IP: h, Port: 1"}},
      {"By=4\nBPS=9600\nDCPU=2\nPID=2\nIPHost=h\nIPPort=1\n", {"Send by LAN (Direct)", "IP: h, Port: 1"}},
      {"By=9\nBPS=9600\n", {"Send by Server (Direct)", "IP: , Port: "}},
  };
  for (const auto& [keys, lines] : cases) EXPECT_EQ(SummaryLines(Read(files, keys)), lines) << keys;
}

}  // namespace
}  // namespace tarvok::test
