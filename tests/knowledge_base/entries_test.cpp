// Entries of the shipped knowledge as the analyzers see them: josa and
// endings with their tags, types and attach rules, words of the main
// dictionaries with their composition texts, the lists, pre-analysis.
#include <memory>
#include <string>

#include "gtest/gtest.h"
#include "knowledge/dictionary.h"
#include "knowledge_base/kb_helpers.h"
#include "qrlsl/qrlsl.h"
#include "text/syllable_table.h"

namespace {

using kbtest::Cp949;
using kbtest::Utf8;

constexpr unsigned kNNG = 0x40000001, kNNB = 0x40000002, kNNP = 0x40000004;
constexpr unsigned kNP = 0x40000020, kNU = 0x40000040, kVV = 0x20000080;
constexpr unsigned kVA = 0x20000100, kVX = 0x10000000, kMA = 0x02000000;
constexpr unsigned kMM = 0x01000000, kIC = 0x04000000;
constexpr unsigned kEM = 0x00400600, kEP = 0x00402000, kETM = 0x00400800;
constexpr unsigned kETN = 0x00401000, kJ = 0x00800000, kJX = 0x00800004;
constexpr unsigned kJKG = 0x00800002;

class KnowledgeEntries : public kbtest::CoreKnowledgeSuite {
 protected:

  // The reading of class `type` (GetJEInfo's numbering) of the whole key.
  static Quorel::jeInfo Reading(const std::string& key, int type) {
    std::string k = Cp949(key);
    Quorel::SearchJEInfo sjei;
    Quorel::jeInfo out;
    if (dic->SearchJE(k.c_str(), sjei) != static_cast<int>(k.size())) return out;
    return dic->GetJEInfo(out, sjei, type);
  }
  static std::string Text(const Quorel::jeInfo& j) {
    return j.text == nullptr ? "" : Utf8(j.text);
  }
  static Quorel::SearchInfo Word(const std::string& word) {
    Quorel::SearchInfo si;
    dic->SearchMain(Cp949(word).c_str(), si);
    return si;
  }
  static bool Has(unsigned bits, unsigned tag) { return (bits & tag) == tag; }
};

TEST_F(KnowledgeEntries, JosaCarryTheirTagsAndAttachRules) {
  Quorel::jeInfo eseo = Reading("에서", 0);
  EXPECT_EQ(Text(eseo), "에서");
  EXPECT_EQ(eseo.bits, kJ);
  EXPECT_EQ(Reading("의", 0).bits, kJKG);
  EXPECT_EQ(Reading("도", 0).bits, kJX);

  // 이 only after a closed syllable, 가 only after an open one, 로 after an
  // open syllable or a final ㄹ.
  const Quorel::SyllableRec* open = Quorel::SyllableAt(Cp949("교").c_str());
  const Quorel::SyllableRec* closed = Quorel::SyllableAt(Cp949("산").c_str());
  const Quorel::SyllableRec* rieul = Quorel::SyllableAt(Cp949("울").c_str());
  ASSERT_TRUE(open && closed && rieul);
  EXPECT_EQ(Quorel::Dictionary::CheckAttach(*closed, Reading("이", 0)), 1);
  EXPECT_EQ(Quorel::Dictionary::CheckAttach(*open, Reading("이", 0)), 0);
  EXPECT_EQ(Quorel::Dictionary::CheckAttach(*open, Reading("가", 0)), 1);
  EXPECT_EQ(Quorel::Dictionary::CheckAttach(*closed, Reading("가", 0)), 0);
  EXPECT_EQ(Quorel::Dictionary::CheckAttach(*rieul, Reading("로", 0)), 1);
  EXPECT_EQ(Quorel::Dictionary::CheckAttach(*closed, Reading("로", 0)), 0);
  EXPECT_EQ(Quorel::Dictionary::CheckAttach(*closed, Reading("으로", 0)), 1);
}

TEST_F(KnowledgeEntries, JosaChainsEndInAuxiliaryJosa) {
  // 에는 is no key of its own: the split search finds 에 and then the
  // chainable 는; 에도, 로도, 으로부터는 likewise.
  for (const char* chain : {"에는", "에도", "로도", "으로부터는"}) {
    std::string text = Cp949(chain);
    Quorel::SearchJEInfo first;
    int length = dic->SearchJE(text.c_str(), first);
    ASSERT_GT(length, 0) << chain;
    ASSERT_LT(length, static_cast<int>(text.size())) << chain;
    Quorel::jeInfo josa;
    EXPECT_NE(dic->GetJEInfo(josa, first, 0).text, nullptr) << chain;
    EXPECT_EQ(josa.attach & 0x20, 0) << chain;  // may start a chain
    Quorel::SearchJEInfo second;
    EXPECT_EQ(dic->SearchJE(text.c_str() + length, second),
              static_cast<int>(text.size()) - length) << chain;
    EXPECT_EQ(second.jeti.bits & 0x4, 0x4u) << chain;
  }
  // A long case josa starts no chain (bit 20); its chains are whole keys.
  for (const char* josa : {"에서", "으로", "에게", "까지"}) {
    EXPECT_EQ(Reading(josa, 0).attach & 0x20, 0x20) << josa;
  }
  for (const char* chain : {"에서도", "으로는", "에게만", "에서부터", "까지는"}) {
    EXPECT_EQ(Text(Reading(chain, 0)), chain) << chain;
  }
}

TEST_F(KnowledgeEntries, EndingsHaveTheirTypes) {
  EXPECT_EQ(Text(Reading("었", 1)), "었");
  EXPECT_EQ(Reading("었", 1).bits, kEP);
  Quorel::jeInfo neun = Reading("는", 1);
  EXPECT_EQ(Text(neun), "는");
  EXPECT_EQ(neun.bits, kETM);
  EXPECT_EQ(Reading("는", 0).bits, kJX);  // the same key is a josa too
  EXPECT_EQ(Reading("기", 1).bits, kETN);
  EXPECT_EQ(Reading("고", 1).bits, kEM);
  EXPECT_EQ(Reading("습니다", 1).bits, kEM);
}

TEST_F(KnowledgeEntries, FusedEndingsAreFoundBehindTheStemsLastSyllable) {
  // 간다 = 가 + ㄴ다, 갈까 = 가 + ㄹ까, 감세 = 가 + ㅁ세, 갑니다 = 가 + ㅂ니다.
  struct Case { const char* key; int type; const char* form; unsigned bits; };
  const Case cases[] = {
      {"다", 5, "ㄴ다", kEM},   {"데", 5, "ㄴ데", kEM},  {"지", 5, "ㄴ지", kEM},
      {"까", 9, "ㄹ까", kEM},   {"게", 9, "ㄹ게", kEM},  {"수록", 9, "ㄹ수록", kEM},
      {"세", 17, "ㅁ세", kEM},  {"니다", 19, "ㅂ니다", kEM},
      {"니까", 19, "ㅂ니까", kEM}, {"시다", 19, "ㅂ시다", kEM}};
  for (const Case& c : cases) {
    Quorel::jeInfo j = Reading(c.key, c.type);
    EXPECT_EQ(Text(j), c.form) << c.key;
    EXPECT_EQ(j.bits, c.bits) << c.key;
    EXPECT_EQ(j.type, c.type) << c.key;
  }
  // Both readings of one key: 다 as written and fused.
  EXPECT_EQ(Text(Reading("다", 1)), "다");
  EXPECT_EQ(Text(Reading("니까", 1)), "니까");
  // The bare jamo endings of 간, 갈, 감 are built in.
  ASSERT_EQ(dic->jamoEomiInfos.size(), 3u);
}

TEST_F(KnowledgeEntries, EndingsThatFollowTheCopulaSayIt) {
  // 학생이다, 친구다, 학생입니다, 학생인데: bit 1 opens the copula route.
  EXPECT_EQ(Reading("다", 1).attach & 0x1, 0x1);
  EXPECT_EQ(Reading("니다", 19).attach & 0x1, 0x1);
  EXPECT_EQ(Reading("데", 5).attach & 0x1, 0x1);
  // A verb-only ending has no adjective reading in its fused form.
  EXPECT_EQ(Reading("다", 5).attach & 0x4, 0x4);
  // 으면 only after a closed stem, 면 after an open one or ㄹ.
  EXPECT_EQ(Reading("으면", 1).attach & 0x10, 0x10);
  EXPECT_EQ(Reading("면", 1).attach & 0x4000, 0x4000);
  // 서 stands for 아서/어서 after a stem whose vowel merged with it.
  EXPECT_EQ(Reading("서", 1).attach & 0x40, 0x40);
}

TEST_F(KnowledgeEntries, MainWordsHaveTheirClassesAndTexts) {
  EXPECT_TRUE(Has(Word("학교").info.bits, kNNG));
  EXPECT_TRUE(Has(Word("먹").info.bits, kVV));
  EXPECT_TRUE(Has(Word("예쁘").info.bits, kVA));
  unsigned iss = Word("있").info.bits;
  EXPECT_TRUE(Has(iss, kVV) && Has(iss, kVX));
  EXPECT_FALSE(Has(iss, kVA));  // 있다 is a verb of existence here
  EXPECT_EQ(Word("않").info.bits, kVX);
  EXPECT_TRUE(Has(Word("나").info.bits, kNP));
  EXPECT_TRUE(Has(Word("아주").info.bits, kMA));
  EXPECT_TRUE(Has(Word("모든").info.bits, kMM));
  EXPECT_TRUE(Has(Word("글쎄").info.bits, kIC));

  Quorel::SearchInfo geot = Word("것");
  EXPECT_TRUE(Has(geot.info.bits, kNNB));
  ASSERT_NE(geot.nnbText, nullptr);
  EXPECT_STREQ(geot.nnbText, "0");
  Quorel::SearchInfo gae = Word("개");
  ASSERT_NE(gae.nnbText, nullptr);
  EXPECT_EQ(std::atoi(gae.nnbText) & 1, 1);  // a counter
  Quorel::SearchInfo cheon = Word("천");
  EXPECT_TRUE(Has(cheon.info.bits, kNU));
  ASSERT_NE(cheon.nuText, nullptr);
  EXPECT_STREQ(cheon.nuText, "1");
  Quorel::SearchInfo korea = Word("대한민국");
  EXPECT_TRUE(Has(korea.info.bits, kNNP));
  ASSERT_NE(korea.nnpText, nullptr);
  EXPECT_STREQ(korea.nnpText, "22");
}

TEST_F(KnowledgeEntries, MembershipListsHoldTheirKeys) {
  EXPECT_EQ(dic->IsXP(Cp949("비").c_str()), 1);
  EXPECT_EQ(dic->IsXSN(Cp949("들").c_str()), 1);
  EXPECT_EQ(dic->IsXSNXSN(Cp949("님들").c_str()), 1);
  EXPECT_EQ(dic->IsCONJ(Cp949("및").c_str()), 1);
  EXPECT_EQ(dic->IsXSN(Cp949("학교").c_str()), 0);
}

TEST_F(KnowledgeEntries, PreAnalysedEojulsComeOutAsWritten) {
  std::unique_ptr<Quorel::QR_Analyzer> analyzer(Quorel::CreateAnalyzer(dic));
  analyzer->SetExOption(1);
  analyzer->RunWithString(Cp949("내가").c_str());
  ASSERT_EQ(analyzer->GetEojulCountInSentence(), 1);
  Quorel::QR_Eojul* e = analyzer->GetEojulInSentence(0);
  ASSERT_GE(e->GetListSize(), 1);
  ASSERT_EQ(e->GetCount(0), 2);
  EXPECT_EQ(Utf8(e->GetLexicon(0, 0)), "나");
  EXPECT_STREQ(e->GetStrPOS(0, 0), "NP");
  EXPECT_EQ(Utf8(e->GetLexicon(0, 1)), "가");
  EXPECT_EQ(e->GetPOS(0, 1) & kJ, kJ);
}

}  // namespace
