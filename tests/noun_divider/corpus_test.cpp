// The divider over the nouns of the annotated corpus, with knowledge made at
// run time from the corpus's own morphemes: every answer is a closed pattern
// string whose groups cover the word, and compounds of known nouns mostly
// come back divided as annotated.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "noun_divider/divider_helpers.h"

namespace Quorel {
namespace {

using testing_divider::Cp949;

const char* const kCorpora[] = {
    "ud-korean-gsd/ko_gsd-ud-dev.conllu",
    "ud-korean-kaist/ko_kaist-ud-dev.conllu"};

struct Token {
  std::string form;                 // CP949
  std::vector<std::string> pieces;  // lemma pieces, UTF-8
  std::vector<std::string> tags;    // their tags
};

std::vector<std::string> SplitPlus(const std::string& s) {
  std::vector<std::string> out;
  std::stringstream in(s);
  std::string part;
  while (std::getline(in, part, '+')) out.push_back(part);
  return out;
}

int Syllables(const std::string& utf8) {
  return static_cast<int>(Cp949(utf8).size() / 2);
}

bool IsHangul(const std::string& cp949) {
  if (cp949.empty() || cp949.size() % 2 != 0) return false;
  for (size_t i = 0; i < cp949.size(); i += 2) {
    const unsigned char lead = static_cast<unsigned char>(cp949[i]);
    if (lead < 0xB0 || lead > 0xC8) return false;
  }
  return true;
}

// Noun tokens of the corpus; the knowledge sources from all tokens.
void ReadCorpus(const std::string& path, std::vector<Token>& nouns,
                testing_divider::SourceFiles& files) {
  std::set<std::string> seen;
  std::ifstream in(path);
  std::string line;
  while (std::getline(in, line)) {
    if (line.empty() || line[0] == '#') continue;
    std::vector<std::string> cols;
    std::stringstream fields(line);
    std::string col;
    while (std::getline(fields, col, '\t')) cols.push_back(col);
    if (cols.size() < 5 || cols[0].find_first_of("-.") != std::string::npos) {
      continue;
    }
    Token t{Cp949(cols[1]), SplitPlus(cols[2]), SplitPlus(cols[4])};
    if (t.pieces.size() == t.tags.size()) {
      for (size_t i = 0; i < t.pieces.size(); ++i) {
        const std::string& p = t.pieces[i];
        const std::string& tag = t.tags[i];
        if (!IsHangul(Cp949(p)) || !seen.insert(tag + "/" + p).second) continue;
        if (tag == "NNG") files["nng.dic"] += p + "\n";
        if (tag == "NNP" && Syllables(p) <= 9) {
          files["nnp.dic"] += p + "\t" + std::to_string(Syllables(p)) + "\n";
        }
        if (tag == "NNB") files["nnb.dic"] += p + "\t1\n";
        if (tag == "NP") files["np.dic"] += p + "\n";
        if (tag == "XSN") files["xsn.dic"] += p + "\n";
        if (tag == "XPN") files["xp.dic"] += p + "\n";
        if (tag[0] == 'J') files["js.dic"] += p + "\t" + p + "/JX 0\n";
      }
    }
    if (cols[3] == "NOUN" || cols[3] == "PROPN") nouns.push_back(t);
  }
}

// The group lengths of a pattern string; false for the special answers.
bool Groups(const char* out, std::vector<std::vector<int>>& groups) {
  groups.clear();
  if (out[0] == '$' || out[0] == '%' ||
      static_cast<unsigned char>(out[0]) == 255) {
    return false;
  }
  groups.emplace_back();
  for (int i = 1; i < kDivOutputSize && out[i] != '$'; ++i) {
    if (out[i] == '@') {
      groups.emplace_back();
    } else if (std::string("BCDIJNPUXY").find(out[i]) != std::string::npos) {
      groups.back().push_back(out[++i]);
    } else {
      groups.back().push_back(out[i]);
    }
  }
  return true;
}

TEST(DividerCorpusTest, NounsOfTheCorpusDivideIntoClosedCoveringPatterns) {
  const std::string root = QRLSL_SOURCE_DIR "/../shared/corpus/";
  std::vector<Token> nouns;
  testing_divider::SourceFiles files;
  for (const char* corpus : kCorpora) {
    if (std::filesystem::exists(root + corpus)) {
      ReadCorpus(root + corpus, nouns, files);
    }
  }
  if (nouns.empty()) GTEST_SKIP() << "no corpus under " << root;
  auto knowledge = testing_divider::LoadKnowledge(files);
  NounDivider divider;
  divider.Bind(&knowledge->dictionary);

  int compounds = 0;
  int compoundsFound = 0;
  int bestFound = 0;
  std::vector<std::vector<int>> groups;
  for (const Token& t : nouns) {
    for (int mode : {0, 1, 2, 3, 4, 10}) {
      const char* out = divider.Divide(t.form.c_str(), mode);
      ASSERT_NE("<open>", testing_divider::Render(out)) << t.form;
      for (int k = 0; k < kDivRows; ++k) {
        ASSERT_TRUE(std::isfinite(divider.GetPatternScore(k)));
      }
      const bool digits = t.form.size() == 6 && mode >= 2 && mode <= 4;
      if (!IsHangul(t.form) || digits || !Groups(out, groups)) continue;
      for (const std::vector<int>& g : groups) {
        int sum = 0;
        for (int length : g) sum += length;
        ASSERT_EQ(static_cast<int>(t.form.size() / 2), sum)
            << testing_divider::Utf8(t.form) << " mode " << mode << ": "
            << testing_divider::Render(out);
      }
    }
    // Compounds of two or more nouns of two syllables or more, as annotated.
    std::vector<int> gold;
    bool plain = t.pieces.size() >= 2 && IsHangul(t.form);
    for (size_t i = 0; plain && i < t.pieces.size(); ++i) {
      plain = t.tags[i] == "NNG" && Syllables(t.pieces[i]) >= 2;
      gold.push_back(Syllables(t.pieces[i]));
    }
    if (!plain) continue;
    ++compounds;
    Groups(divider.Divide(t.form.c_str(), 2), groups);
    for (const std::vector<int>& g : groups) compoundsFound += g == gold;
    Groups(divider.Divide(t.form.c_str(), 1), groups);
    bestFound += groups.size() == 1 && groups[0] == gold;
  }
  ASSERT_GT(compounds, 100);
  // Among the groups, and as the one best group.
  EXPECT_GT(compoundsFound * 10, compounds * 9)
      << compoundsFound << " of " << compounds;
  EXPECT_GT(bestFound * 10, compounds * 9) << bestFound << " of " << compounds;
}

}  // namespace
}  // namespace Quorel
