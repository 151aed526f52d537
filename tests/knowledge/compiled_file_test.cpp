// The compiled knowledge file: compile then load gives the same tries,
// records and answers; truncated or damaged files fail where they end; a
// byte-swapped image reads back with the swap forced on.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "knowledge/dictionary.h"
#include "knowledge/knowledge_helpers.h"

namespace Quorel {
namespace {

using testing_knowledge::Cp949;
using testing_knowledge::TempDir;

// Walks an image by the file layout, noting every 16- and 32-bit field and
// where the sections and record blocks lie.
class ImageMap {
 public:
  explicit ImageMap(const std::string& image) : bytes(image) {
    pos = 67;
    sectionStart.push_back(pos);
    Trie();
    mainRecords = Records(6);
    Skip(Int());
    sectionStart.push_back(pos);
    Trie();
    jeRecords = Records(7);
    Skip(Int());
    int32_t n = Int();
    for (int k = 0; k < 2 * n; ++k) Int();
    for (int k = 0; k < n; ++k) Int(2);
    Skip(n);
    jeInfoCount = n;
    sectionStart.push_back(pos);
    Trie();
    n = Int();
    for (int k = 0; k < n; ++k) Int();
    sectionStart.push_back(pos);
    Trie();
    n = Int();
    for (int k = 0; k < 3 * n; ++k) Int();
    for (int list = 0; list < 4; ++list) {
      sectionStart.push_back(pos);
      Trie();
      Int();
    }
    sectionStart.push_back(pos);
    Trie();
    Skip(Int());
    end = pos;
  }

  // The image with every number's bytes reversed.
  std::string Swapped() const {
    std::string out = bytes;
    for (const auto& field : numbers) {
      for (int k = 0; k < field.second / 2; ++k) {
        std::swap(out[field.first + k], out[field.first + field.second - 1 - k]);
      }
    }
    return out;
  }

  struct Range {
    size_t from = 0;  // first truncation length that has the count
    size_t to = 0;    // length at which all records are present
  };

  std::vector<size_t> sectionStart;  // 9 sections
  Range mainRecords;
  Range jeRecords;
  int32_t jeInfoCount = 0;
  size_t end = 0;

 private:
  int32_t Int(int width = 4) {
    numbers.emplace_back(pos, width);
    uint32_t v = 0;
    for (int k = width - 1; k >= 0; --k) {
      v = (v << 8) | static_cast<unsigned char>(bytes.at(pos + k));
    }
    pos += width;
    return width == 2 ? static_cast<int16_t>(v) : static_cast<int32_t>(v);
  }
  void Skip(int32_t n) { pos += n; }
  void Trie() {
    int32_t cells = Int();
    int32_t tail = Int();
    Int();
    Int();
    if (cells > 1) {
      for (int k = 0; k < 2 * cells; ++k) Int();
    }
    if (tail > 1) Skip(tail);
  }
  Range Records(int fields) {
    int32_t n = Int();
    Range r;
    r.from = pos;
    for (int k = 0; k < n * fields; ++k) Int();
    r.to = pos;
    return r;
  }

  const std::string& bytes;
  size_t pos = 0;
  std::vector<std::pair<size_t, int>> numbers;
};

// Every key of a trie, read from its cells and tail.
void CollectKeys(const QR_DaTrie& trie, int32_t state, const std::string& prefix,
                 std::vector<std::string>& keys) {
  static unsigned char byteOf[256];
  for (int b = 0; b < 256; ++b) byteOf[CodeMap[b]] = static_cast<unsigned char>(b);
  const int32_t base = trie.bc[state].base;
  if (base < 0) {
    std::string rest;
    for (const unsigned char* p = trie.tail - base; *p != ';'; ++p) rest += *p;
    keys.push_back(prefix + rest);
    return;
  }
  for (int code = 1; code < 256; ++code) {
    const int32_t next = base + code;
    if (next > trie.bcPos) break;
    if (trie.bc[next].check != state) continue;
    if (byteOf[code] == ';') {
      keys.push_back(prefix);
    } else {
      CollectKeys(trie, next, prefix + static_cast<char>(byteOf[code]), keys);
    }
  }
}

std::vector<std::string> Keys(const QR_DaTrie& trie) {
  std::vector<std::string> keys;
  if (trie.bc != nullptr && trie.bcPos >= 1) CollectKeys(trie, 1, "", keys);
  return keys;
}

int32_t ValueOf(const QR_DaTrie& trie, const std::string& key) {
  TrieNode node;
  for (unsigned char c : key) {
    if (!trie.Walk(c, node)) return -1;
  }
  return node.value ? QR_DaTrie::GetValue(node) : -1;
}

void ExpectSameTrie(const QR_DaTrie& a, const QR_DaTrie& b, const char* name) {
  SCOPED_TRACE(name);
  ASSERT_EQ(a.bcPos, b.bcPos);
  ASSERT_EQ(a.tailPos, b.tailPos);
  EXPECT_EQ(a.bcEmptyStart, b.bcEmptyStart);
  EXPECT_EQ(a.bcEmptyEnd, b.bcEmptyEnd);
  if (a.bc == nullptr) return;
  EXPECT_EQ(0, std::memcmp(a.bc, b.bc, sizeof(TrieCell) * (a.bcPos + 1)));
  EXPECT_EQ(0, std::memcmp(a.tail, b.tail, static_cast<size_t>(a.tailPos)));
  std::vector<std::string> keys = Keys(a);
  EXPECT_EQ(keys, Keys(b));
  for (const std::string& key : keys) {
    EXPECT_EQ(ValueOf(a, key), ValueOf(b, key));
    EXPECT_NE(-1, ValueOf(b, key));
  }
}

bool SameMain(const MainTrieInfo& a, const MainTrieInfo& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

bool SameJe(const JosaEomiTrieInfo& a, const JosaEomiTrieInfo& b) {
  return std::memcmp(&a, &b, sizeof a) == 0;
}

class CompiledFileTest : public ::testing::Test {
 protected:
  void SetUp() override {
    testing_knowledge::WriteSmallKnowledge(source);
    ::testing::internal::CaptureStderr();
    ASSERT_TRUE(built.CompileKnowledge(source.Path().c_str(),
                                       output.Path().c_str()));
    ::testing::internal::GetCapturedStderr();
    image = output.Read("qrl.klg");
  }

  // Loads `bytes` as a compiled file; the result, messages in `messages`.
  int LoadImage(Dictionary& dict, const std::string& bytes,
                bool withPreAnalysis = true) {
    scratch.WriteRaw("qrl.klg", bytes);
    ::testing::internal::CaptureStderr();
    int result =
        dict.LoadKnowledge(scratch.Path().c_str(), true, withPreAnalysis);
    messages = ::testing::internal::GetCapturedStderr();
    return result;
  }

  void ExpectSameKnowledge(const Dictionary& a, const Dictionary& b) {
    ExpectSameTrie(a.mainTrie, b.mainTrie, "main");
    ExpectSameTrie(a.jeTrie, b.jeTrie, "je");
    ExpectSameTrie(a.divTrie, b.divTrie, "div");
    ExpectSameTrie(a.posTrie, b.posTrie, "pos");
    ExpectSameTrie(a.xpTrie, b.xpTrie, "xp");
    ExpectSameTrie(a.xsnTrie, b.xsnTrie, "xsn");
    ExpectSameTrie(a.xsnxsnTrie, b.xsnxsnTrie, "xsnxsn");
    ExpectSameTrie(a.conjTrie, b.conjTrie, "conj");
    ExpectSameTrie(a.preAnalTrie, b.preAnalTrie, "pre");
    ASSERT_EQ(a.mainInfos.size(), b.mainInfos.size());
    for (size_t i = 0; i < a.mainInfos.size(); ++i) {
      EXPECT_TRUE(SameMain(a.mainInfos[i], b.mainInfos[i])) << i;
    }
    ASSERT_EQ(a.jeInfos.size(), b.jeInfos.size());
    for (size_t i = 0; i < a.jeInfos.size(); ++i) {
      EXPECT_TRUE(SameJe(a.jeInfos[i], b.jeInfos[i])) << i;
    }
    ASSERT_EQ(a.mainPool.used, b.mainPool.used);
    EXPECT_EQ(0, std::memcmp(a.mainPool.buffer, b.mainPool.buffer,
                             static_cast<size_t>(a.mainPool.used)));
    EXPECT_EQ(a.preAnalBuffer, b.preAnalBuffer);
    ASSERT_EQ(a.sizeDivInfo, b.sizeDivInfo);
    ASSERT_EQ(a.sizePosInfo, b.sizePosInfo);
    EXPECT_EQ(0, std::memcmp(a.divInfo, b.divInfo, 4 * a.sizeDivInfo));
    EXPECT_EQ(0, std::memcmp(a.posInfo, b.posInfo, 12 * a.sizePosInfo));

    // Every key answers the same through the lookups.
    for (const std::string& key : Keys(a.mainTrie)) {
      SearchInfo sa;
      SearchInfo sb;
      EXPECT_EQ(1, a.SearchMain(key.c_str(), sa));
      EXPECT_EQ(1, b.SearchMain(key.c_str(), sb));
      EXPECT_TRUE(SameMain(sa.info, sb.info));
      EXPECT_EQ(sa.nnpText ? std::string(sa.nnpText) : "-",
                sb.nnpText ? std::string(sb.nnpText) : "-");
    }
    for (const std::string& key : Keys(a.jeTrie)) {
      SearchJEInfo ja;
      SearchJEInfo jb;
      EXPECT_EQ(a.SearchJE(key.c_str(), ja), b.SearchJE(key.c_str(), jb));
      for (int type : {0, 1, 5, 9, 17, 19}) {
        jeInfo ia;
        jeInfo ib;
        a.GetJEInfo(ia, ja, type);
        b.GetJEInfo(ib, jb, type);
        EXPECT_EQ(ia.text ? std::string(ia.text) : "-",
                  ib.text ? std::string(ib.text) : "-");
        EXPECT_EQ(ia.bits, ib.bits);
        EXPECT_EQ(ia.attach, ib.attach);
        EXPECT_EQ(ia.type, ib.type);
      }
    }
    for (const std::string& key : Keys(a.divTrie)) {
      int32_t fa = 0;
      int32_t fb = 0;
      EXPECT_EQ(1, b.GetDivFreq(key.c_str(), fb));
      a.GetDivFreq(key.c_str(), fa);
      EXPECT_EQ(fa, fb);
    }
    for (const std::string& key : Keys(a.posTrie)) {
      PosInfoRec ra;
      PosInfoRec rb;
      EXPECT_EQ(1, b.GetPosFreq(key.c_str(), rb));
      a.GetPosFreq(key.c_str(), ra);
      EXPECT_EQ(0, std::memcmp(&ra, &rb, sizeof ra));
    }
    for (const std::string& key : Keys(a.xpTrie)) EXPECT_EQ(1, b.IsXP(key.c_str()));
    for (const std::string& key : Keys(a.conjTrie)) {
      EXPECT_EQ(1, b.IsCONJ(key.c_str()));
    }
  }

  TempDir source;
  TempDir output;
  TempDir scratch;
  Dictionary built{false};
  std::string image;
  std::string messages;
};

TEST_F(CompiledFileTest, HeaderAndLayout) {
  ASSERT_GT(image.size(), 67u);
  EXPECT_EQ(std::string("Quorel compiled knowledge image, format revision "
                        "2001-2008.\0Quorel\0",
                        67),
            image.substr(0, 67));
  ImageMap map(image);
  EXPECT_EQ(image.size(), map.end);  // nothing behind the last section
  EXPECT_EQ(built.jePool.count, map.jeInfoCount);
  EXPECT_EQ(built.mainInfos.size() * 24,
            map.mainRecords.to - map.mainRecords.from);
}

TEST_F(CompiledFileTest, CompileThenLoadGivesTheSameKnowledge) {
  Dictionary loaded(false);
  ASSERT_EQ(1, LoadImage(loaded, image));
  EXPECT_EQ("", messages);
  ExpectSameKnowledge(built, loaded);
  // The capacities follow the stored counts, not the builder's.
  EXPECT_EQ(built.mainTrie.bcPos + 1, loaded.mainTrie.bcSize);
  EXPECT_NE(built.mainTrie.bcSize, loaded.mainTrie.bcSize);
  // The reader adds the jamo endings once more and references the new ones.
  EXPECT_EQ(built.jePool.count + 3, loaded.jePool.count);
  ASSERT_EQ(3u, loaded.jamoEomiInfos.size());
  EXPECT_EQ(built.jePool.count, loaded.jamoEomiInfos[0].eomiInfo5);
  EXPECT_EQ(built.jePool.count + 2, loaded.jamoEomiInfos[2].eomiInfo17);
  // The list sizes are not kept.
  EXPECT_EQ(0, loaded.sizeXPList);
  EXPECT_EQ(2, built.sizeXPList);
}

TEST_F(CompiledFileTest, LoadedKnowledgeTakesUserNounsAndPreAnalysis) {
  Dictionary loaded(false);
  ASSERT_EQ(1, LoadImage(loaded, image));
  scratch.Write("users.txt", "새말\t2\n");
  scratch.Write("pre.txt", "갔다\t가/VV+았/EP+다/EF\n");
  EXPECT_EQ(1, loaded.LoadUserNoun(scratch.Path().c_str(), "users.txt", 0));
  EXPECT_EQ(1, loaded.LoadPreAnalysis(scratch.Path().c_str(), "pre.txt", 0));
  SearchInfo si;
  EXPECT_EQ(1, loaded.SearchMain(Cp949("새말").c_str(), si));
  EXPECT_EQ(1, loaded.SearchMain(Cp949("학교").c_str(), si));
  EXPECT_NE(-1, ValueOf(loaded.preAnalTrie, Cp949("갔다")));
  EXPECT_NE(-1, ValueOf(loaded.preAnalTrie, Cp949("먹었다")));
}

TEST_F(CompiledFileTest, WithoutPreAnalysisTheReaderStopsAfterTheLists) {
  Dictionary loaded(false);
  ASSERT_EQ(1, LoadImage(loaded, image, false));
  EXPECT_EQ(nullptr, loaded.preAnalTrie.bc);
  ImageMap map(image);
  Dictionary cut(false);
  EXPECT_EQ(1, LoadImage(cut, image.substr(0, map.sectionStart[8]), false));
  EXPECT_EQ(0, LoadImage(cut, image.substr(0, map.sectionStart[8] - 1), false));
}

TEST_F(CompiledFileTest, TruncatedFileFailsInTheSectionWhereItEnds) {
  ImageMap map(image);
  const std::string mainError =
      "during main Trie writing, file error occurred.\n";
  const std::string jeError = "during main Trie reading, file error occurred.\n";
  // Every length around a section or record block boundary, and a sample
  // of the lengths in between.
  std::vector<size_t> lengths;
  std::vector<size_t> marks = map.sectionStart;
  marks.insert(marks.end(), {0, 60, 67, map.mainRecords.from,
                             map.mainRecords.to, map.jeRecords.from,
                             map.jeRecords.to, image.size()});
  for (size_t length = 0; length < image.size(); ++length) {
    bool near = length % 17 == 0;
    for (size_t mark : marks) near = near || (length + 6 > mark && length < mark + 6);
    if (near) lengths.push_back(length);
  }
  for (size_t length : lengths) {
    SCOPED_TRACE(length);
    Dictionary dict(false);
    ASSERT_EQ(0, LoadImage(dict, image.substr(0, length)));
    std::string expected;
    if (length >= map.mainRecords.from && length < map.mainRecords.to) {
      expected = mainError;
    } else if (length >= map.jeRecords.from && length < map.jeRecords.to) {
      expected = jeError;
    }
    ASSERT_EQ(expected, messages);
    // The jamo endings come right after the josa/eomi section.
    ASSERT_EQ(length >= map.sectionStart[2] ? 3u : 0u,
              dict.jamoEomiInfos.size());
    ASSERT_EQ(length >= map.mainRecords.to ? built.mainInfos.size() : 0u,
              length >= map.mainRecords.to ? dict.mainInfos.size() : 0u);
  }
}

TEST_F(CompiledFileTest, ByteSwappedImageReadsWithTheSwapForced) {
  ImageMap map(image);
  const std::string swapped = map.Swapped();
  ASSERT_NE(image, swapped);
  Dictionary dict(false);
  dict.littleEndian = 0;
  ASSERT_EQ(1, LoadImage(dict, swapped));
  EXPECT_EQ("", messages);
  ExpectSameKnowledge(built, dict);
  // Written back with the swap on, the image is the swapped one again: the
  // writer swaps every number and nothing else. (Knowledge read from a file
  // holds the reader's jamo endings too, so compare two such knowledges.)
  ASSERT_EQ(1, dict.SaveCompiled(scratch.Path().c_str()));
  const std::string rewritten = scratch.Read("qrl.klg");
  Dictionary plain(false);
  ASSERT_EQ(1, LoadImage(plain, image));
  ASSERT_EQ(1, plain.SaveCompiled(output.Path().c_str()));
  const std::string little = output.Read("qrl.klg");
  EXPECT_EQ(ImageMap(little).Swapped(), rewritten);
}

TEST_F(CompiledFileTest, BannerIsIgnoredButTheProductFieldDecides) {
  std::string other = image;
  other.replace(0, 6, "QQQQQQ");
  Dictionary a(false);
  EXPECT_EQ(1, LoadImage(a, other));
  other = image;
  other[61] = 'X';
  Dictionary b(false);
  EXPECT_EQ(0, LoadImage(b, other));
  EXPECT_EQ("Knowledge file is not suitable for Quorel.\n", messages);
}

TEST_F(CompiledFileTest, ImpossibleCountsAreRefused) {
  ImageMap map(image);
  auto withInt = [this](size_t at, int32_t value) {
    std::string out = image;
    for (int k = 0; k < 4; ++k) {
      out[at + k] = static_cast<char>((static_cast<uint32_t>(value) >> (8 * k)) & 0xFF);
    }
    return out;
  };
  const size_t mainCount = map.mainRecords.from - 4;
  for (int32_t bad : {-1, INT32_MIN, INT32_MAX, 1 << 20}) {
    Dictionary dict(false);
    EXPECT_EQ(0, LoadImage(dict, withInt(mainCount, bad))) << bad;
    EXPECT_EQ("during main Trie writing, file error occurred.\n", messages);
    EXPECT_TRUE(dict.mainInfos.empty());
  }
  // The cell and tail counts of a trie image.
  for (size_t field : {size_t{67}, size_t{71}}) {
    for (int32_t bad : {-5, INT32_MAX}) {
      Dictionary dict(false);
      EXPECT_EQ(0, LoadImage(dict, withInt(field, bad)));
    }
  }
  // A free-list head beyond the cells.
  Dictionary dict(false);
  EXPECT_EQ(0, LoadImage(dict, withInt(75, INT32_MAX)));
  // A cell that points outside the arrays.
  Dictionary far(false);
  EXPECT_EQ(0, LoadImage(far, withInt(83 + 8, 0x7FFFFF00)));
}

TEST_F(CompiledFileTest, AutoLoadReadsTheCompiledFileUnderDotKnowledge) {
  namespace fs = std::filesystem;
  fs::create_directory(scratch.File("knowledge"));
  scratch.WriteRaw("knowledge/qrl.klg", image);
  const fs::path previous = fs::current_path();
  fs::current_path(scratch.Path());
  std::unique_ptr<QR_Knowledge> automatic(CreateKnowledge(true));
  std::unique_ptr<QR_Knowledge> empty(CreateKnowledge(false));
  fs::current_path(previous);
  auto* loaded = dynamic_cast<Dictionary*>(automatic.get());
  ASSERT_NE(nullptr, loaded);
  SearchInfo si;
  EXPECT_EQ(1, loaded->SearchMain(Cp949("학교").c_str(), si));
  EXPECT_NE(-1, ValueOf(loaded->preAnalTrie, Cp949("나는")));
  auto* blank = dynamic_cast<Dictionary*>(empty.get());
  ASSERT_NE(nullptr, blank);
  EXPECT_TRUE(blank->mainInfos.empty());
  EXPECT_EQ(0, blank->SearchMain(Cp949("학교").c_str(), si));
}

TEST(CompiledFile, EmptyKnowledgeRoundTrips) {
  TempDir source;
  TempDir output;
  Dictionary built(false);
  ASSERT_TRUE(built.CompileKnowledge(source.Path().c_str(),
                                     output.Path().c_str()));
  Dictionary loaded(false);
  ASSERT_EQ(1, loaded.LoadKnowledge(output.Path().c_str(), true, true));
  EXPECT_EQ(1u, loaded.mainInfos.size());
  EXPECT_EQ(6, loaded.jePool.count);
  EXPECT_EQ(0, loaded.IsXP("x"));
  EXPECT_EQ(2, loaded.mainTrie.bcPos + 1);  // an empty trie: two cells
  EXPECT_EQ(2, loaded.mainTrie.tailPos + 1);
  SearchInfo si;
  EXPECT_EQ(0, loaded.SearchMain("x", si));
}

TEST(CompiledFile, UnwritableOutputIsReported) {
  TempDir source;
  Dictionary dict(false);
  const std::string missing = source.Path() + "/no/such/dir";
  ::testing::internal::CaptureStderr();
  EXPECT_FALSE(dict.CompileKnowledge(source.Path().c_str(), missing.c_str()));
  EXPECT_EQ("Fail to create Knowledge.\nCan't open " + missing +
                "/qrl.klg file.\n",
            ::testing::internal::GetCapturedStderr());
}

}  // namespace
}  // namespace Quorel
