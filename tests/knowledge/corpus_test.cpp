// Dictionaries built from the morphemes of the annotated corpus: every word
// and ending is found after a source build, and a compiled round trip gives
// the same tries. Skipped when the corpus is absent.
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "knowledge/knowledge_helpers.h"

namespace Quorel {
namespace {

using testing_knowledge::Cp949;
using testing_knowledge::TempDir;

const char kCorpus[] =
    QRLSL_SOURCE_DIR "/../shared/corpus/ud-korean-gsd/ko_gsd-ud-dev.conllu";

std::vector<std::string> SplitAt(const std::string& text, char delimiter) {
  std::vector<std::string> parts;
  std::stringstream in(text);
  std::string part;
  while (std::getline(in, part, delimiter)) parts.push_back(part);
  return parts;
}

// A form that a source line can carry as it is, in CP949; empty otherwise.
std::string Usable(const std::string& utf8) {
  if (utf8.empty() || utf8.find_first_of(" \t;/#@+") != std::string::npos) {
    return "";
  }
  try {
    std::string form = Cp949(utf8);
    return form.size() <= 40 ? form : "";
  } catch (const std::runtime_error&) {
    return "";  // not representable in CP949
  }
}

// The columns of each word line of the corpus.
std::vector<std::vector<std::string>> CorpusRows() {
  std::vector<std::vector<std::string>> rows;
  std::ifstream in(kCorpus);
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line[0] != '#') rows.push_back(SplitAt(line, '\t'));
  }
  return rows;
}

// Morphemes of the corpus by source file: file name to CP949 forms.
std::map<std::string, std::set<std::string>> CollectMorphemes() {
  std::map<std::string, std::set<std::string>> files;
  for (const std::vector<std::string>& columns : CorpusRows()) {
    if (columns.size() < 5) continue;
    std::vector<std::string> forms = SplitAt(columns[2], '+');
    std::vector<std::string> tags = SplitAt(columns[4], '+');
    if (forms.size() != tags.size()) continue;
    for (size_t k = 0; k < forms.size(); ++k) {
      const std::string form = Usable(forms[k]);
      const std::string& tag = tags[k];
      if (form.empty()) continue;
      if (tag == "NNG") files["nng.dic"].insert(form);
      if (tag == "NNP") files["nnp.dic"].insert(form);
      if (tag == "VV") files["vv.dic"].insert(form);
      if (tag == "MAG") files["ma.dic"].insert(form);
      if (tag[0] == 'J') files["js.dic"].insert(form);
      if (tag == "EC" || tag == "EF" || tag == "ETM") files["em.dic"].insert(form);
    }
  }
  return files;
}

std::string SourceLine(const std::string& file, const std::string& form) {
  if (file == "js.dic") return form + "\t" + form + "/JX 0\n";
  if (file == "em.dic") return form + "\t" + form + "/EC 1\n";
  if (file == "nnp.dic") return form + "\t" + form + "\n";
  return form + "\n";
}

// Writes the source dictionaries of the corpus morphemes into dir.
void WriteSources(const std::map<std::string, std::set<std::string>>& files,
                  const TempDir& dir) {
  for (const auto& entry : files) {
    std::string text;
    for (const std::string& form : entry.second) {
      text += SourceLine(entry.first, form);
    }
    dir.WriteRaw(entry.first, text);
  }
}

// The eojuls of the corpus in CP949.
std::vector<std::string> CollectEojuls() {
  std::vector<std::string> eojuls;
  for (const std::vector<std::string>& columns : CorpusRows()) {
    if (columns.size() < 2) continue;
    try {
      eojuls.push_back(Cp949(columns[1]));
    } catch (const std::runtime_error&) {
      // not representable in CP949
    }
  }
  return eojuls;
}

// Everything the lookups answer for text from byte `at` on, as one string.
std::string Answers(const Dictionary& dict, const std::string& text,
                    int32_t at) {
  std::string out;
  const char* key = text.c_str() + at;
  for (int flags = 0; flags < 16; ++flags) {
    std::vector<SearchInfo> hits;
    dict.SearchAll(text.c_str(), hits, 0, at, flags & 1, (flags >> 1) & 1,
                   (flags >> 2) & 1, (flags >> 3) & 1);
    for (const SearchInfo& si : hits) {
      out += std::to_string(si.end) + ":" + std::to_string(si.info.bits) + " ";
    }
    out += "|";
  }
  SearchInfo si;
  out += std::to_string(dict.SearchMain(key, si)) + std::to_string(si.end);
  SearchJEInfo sjei;
  out += " " + std::to_string(dict.SearchJE(key, sjei)) + ":" +
         std::to_string(sjei.jeti.bits) + " " + std::to_string(dict.IsXSN(key));
  return out;
}

TEST(CorpusKnowledge, IndexedLookupsAnswerAsByteWalks) {
  if (!std::ifstream(kCorpus).good()) GTEST_SKIP() << "corpus not present";
  TempDir source;
  WriteSources(CollectMorphemes(), source);
  Dictionary indexed(false);
  Dictionary byBytes(false);
  ::testing::internal::CaptureStderr();
  ASSERT_EQ(1, indexed.LoadKnowledge(source.Path().c_str(), false, false));
  ASSERT_EQ(1, byBytes.LoadKnowledge(source.Path().c_str(), false, false));
  ::testing::internal::GetCapturedStderr();
  ASSERT_TRUE(indexed.mainTrie.HasReadIndexes());
  ASSERT_TRUE(indexed.jeTrie.HasReadIndexes());
  for (QR_DaTrie* trie : {&byBytes.mainTrie, &byBytes.jeTrie, &byBytes.xsnTrie}) {
    trie->DropReadIndexes();
  }
  size_t compared = 0;
  for (const std::string& eojul : CollectEojuls()) {
    for (int32_t at = 0; at < static_cast<int32_t>(eojul.size()); ++at) {
      ASSERT_EQ(Answers(byBytes, eojul, at), Answers(indexed, eojul, at))
          << eojul << " from " << at;
      ++compared;
    }
  }
  EXPECT_GT(compared, 10000u);
}

TEST(CorpusKnowledge, EveryMorphemeIsFoundBeforeAndAfterCompiling) {
  if (!std::ifstream(kCorpus).good()) GTEST_SKIP() << "corpus not present";
  const auto files = CollectMorphemes();
  ASSERT_FALSE(files.empty());
  TempDir source;
  TempDir output;
  WriteSources(files, source);
  Dictionary built(false);
  ::testing::internal::CaptureStderr();
  ASSERT_TRUE(built.CompileKnowledge(source.Path().c_str(),
                                     output.Path().c_str()));
  EXPECT_EQ("", ::testing::internal::GetCapturedStderr());
  Dictionary loaded(false);
  ASSERT_EQ(1, loaded.LoadKnowledge(output.Path().c_str(), true, true));
  EXPECT_EQ(0, std::memcmp(built.mainTrie.bc, loaded.mainTrie.bc,
                           sizeof(TrieCell) * (built.mainTrie.bcPos + 1)));
  EXPECT_EQ(0, std::memcmp(built.jeTrie.tail, loaded.jeTrie.tail,
                           static_cast<size_t>(built.jeTrie.tailPos)));

  const std::map<std::string, uint32_t> masks = {
      {"nng.dic", Pos::NNG}, {"nnp.dic", Pos::NNP}, {"vv.dic", Pos::VV},
      {"ma.dic", Pos::MA}};
  size_t checked = 0;
  for (const Dictionary* dict : {&built, &loaded}) {
    for (const auto& entry : files) {
      for (const std::string& form : entry.second) {
        ++checked;
        if (entry.first == "js.dic" || entry.first == "em.dic") {
          SearchJEInfo sjei;
          ASSERT_EQ(static_cast<int>(form.size()),
                    dict->SearchJE(form.c_str(), sjei));
          const uint32_t mask = entry.first == "js.dic" ? Pos::JX : Pos::EM;
          ASSERT_EQ(mask, sjei.jeti.bits & mask);
          continue;
        }
        SearchInfo si;
        ASSERT_EQ(1, dict->SearchMain(form.c_str(), si));
        const uint32_t mask = masks.at(entry.first);
        ASSERT_EQ(mask, si.info.bits & mask);
        if (entry.first == "nnp.dic") {
          ASSERT_EQ(form, si.nnpText);
        }
      }
    }
  }
  EXPECT_GT(checked, 2000u);
}

}  // namespace
}  // namespace Quorel
