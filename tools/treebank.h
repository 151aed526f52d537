// Reading of CoNLL-U treebanks whose LEMMA column holds the morphemes joined
// by "+" and XPOS their tags (Sejong tags, or KAIST tags in lower case),
// shared by qrl_eval and qrl_train: the tokens of a sentence, the mapping of
// the corpus tags onto this analyzer's tag names and coarse classes, the
// CP949 text the analyzer is given, and the coarse morphemes of a candidate.
// Header only, since every tools/*.cpp is a program of its own.
#ifndef QRLSL_TOOLS_TREEBANK_H_
#define QRLSL_TOOLS_TREEBANK_H_

#include <algorithm>
#include <cctype>
#include <cstring>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "eojul/tag_set.h"
#include "knowledge/dictionary.h"
#include "qrlsl/qrlsl.h"
#include "text/charset.h"
#include "trie/lookup_records.h"

namespace Quorel {
namespace treebank {

// One word line of a treebank (UTF-8); `lemma` holds the morphemes.
struct Token {
  std::string surface;
  std::string lemma;
  std::string xpos;
  bool spaceAfter = true;
};

// A morpheme compared between gold and system: UTF-8 form, coarse tag.
struct Morpheme {
  std::string form;
  std::string tag;
  bool operator<(const Morpheme& o) const {
    return form != o.form ? form < o.form : tag < o.tag;
  }
  bool operator==(const Morpheme& o) const {
    return form == o.form && tag == o.tag;
  }
};

inline std::string Convert(const std::string& text, const char* from,
                           const char* to) {
  WideChar* wide = ToWide(text.c_str(), from);
  char* bytes = FromWide(wide, to);
  std::string result = bytes == nullptr ? "" : bytes;
  FreeBytes(bytes);
  FreeWide(wide);
  return result;
}

// CP949 form of UTF-8 text; "" when CP949 can't hold all of it.
inline std::string ToCp949(const std::string& utf8) {
  // The input road in one pass, up to the first NUL as a C string ends; no
  // character grows, so n + 1 bytes hold it.
  const size_t n = std::strlen(utf8.c_str());
  std::string cp949(n + 1, '\0');
  cp949.resize(static_cast<size_t>(
      Utf8ToCp949(&cp949[0], utf8.data(), static_cast<int32_t>(n))));
  if (cp949.empty() || Convert(cp949, "cp949", "utf-8") != utf8) return "";
  return cp949;
}

inline std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(text);
  while (std::getline(in, part, separator)) parts.push_back(part);
  if (!text.empty() && text.back() == separator) parts.push_back("");
  return parts;
}

// The PosTable name that stands for a Sejong tag; "" for a tag outside the
// Sejong set. The name GetStrPOS gives is CanonicalTag of it (JKG comes
// back as J_, EF as EM, XSA as XSD). Documented in knowledge-src/README.md.
inline std::string SystemTagOfSejong(const std::string& tag) {
  static const std::map<std::string, std::string> table = {
      {"NNG", "NNG"}, {"NNP", "NNP"}, {"NNB", "NNB"}, {"NR", "NU"},
      {"NP", "NP"},   {"NF", "NNR"},  {"NV", "NNR"},  {"NA", "NNR"},
      {"XR", "NNG"},  {"VV", "VV"},   {"VA", "VA"},   {"VX", "VX"},
      {"VCP", "VC"},  {"VCN", "VA"},  {"MM", "MM"},   {"MAG", "MAG"},
      {"MAJ", "MAJ"}, {"IC", "IC"},   {"JKS", "JK"},  {"JKC", "JK"},
      {"JKG", "JKG"}, {"JKO", "JK"},  {"JKB", "JK"},  {"JKV", "JK"},
      {"JKQ", "JK"},  {"JX", "JX"},   {"JC", "JC"},   {"EP", "EP"},
      {"EF", "EF"},   {"EC", "EC"},   {"ETN", "ETN"}, {"ETM", "ETM"},
      {"XPN", "XP"},  {"XSN", "XSN"}, {"XSV", "XSV"}, {"XSA", "XSA"},
      {"SF", "SC"},   {"SP", "SC"},   {"SS", "SC"},   {"SE", "SC"},
      {"SO", "SC"},   {"SW", "SC"},   {"SN", "SN"},   {"SL", "FL"},
      {"SH", "FL"}};
  auto it = table.find(tag);
  return it == table.end() ? "" : it->second;
}

// The PosTable name that stands for a KAIST tag (the lower-case tags of the
// UD Korean Kaist treebank); "" for a tag outside the set. Documented in
// knowledge-src/README.md.
inline std::string SystemTagOfKaist(const std::string& tag) {
  static const std::map<std::string, std::string> table = {
      {"ncn", "NNG"},  {"ncpa", "NNG"}, {"ncps", "NNG"}, {"ncr", "NNG"},
      {"nq", "NNP"},   {"nbn", "NNB"},  {"nbs", "NNB"},  {"nbu", "NNB"},
      {"npp", "NP"},   {"npd", "NP"},   {"nnc", "NU"},   {"nno", "NU"},
      {"pvg", "VV"},   {"pvd", "VV"},   {"paa", "VA"},   {"pad", "VA"},
      {"px", "VX"},    {"jp", "VC"},    {"mma", "MM"},   {"mmd", "MM"},
      {"mag", "MAG"},  {"mad", "MAG"},  {"maj", "MAJ"},  {"ii", "IC"},
      {"jcs", "JK"},   {"jcc", "JK"},   {"jco", "JK"},   {"jca", "JK"},
      {"jcv", "JK"},   {"jcr", "JK"},   {"jcm", "JKG"},  {"jxc", "JX"},
      {"jxf", "JX"},   {"jxt", "JX"},   {"jcj", "JC"},   {"jct", "JC"},
      {"ep", "EP"},    {"ef", "EF"},    {"ecc", "EC"},   {"ecs", "EC"},
      {"ecx", "EC"},   {"etn", "ETN"},  {"etm", "ETM"},  {"xp", "XP"},
      {"xsn", "XSN"},  {"xsv", "XSV"},  {"xsm", "XSA"},  {"xsa", "XSA"},
      {"sf", "SC"},    {"sp", "SC"},    {"sl", "SC"},    {"sr", "SC"},
      {"sd", "SC"},    {"se", "SC"},    {"su", "SC"},    {"sy", "SC"},
      {"f", "FL"}};
  auto it = table.find(tag);
  return it == table.end() ? "" : it->second;
}

// True for a KAIST tag (lower case) rather than a Sejong one.
inline bool IsKaistTag(const std::string& tag) {
  return !tag.empty() && std::islower(static_cast<unsigned char>(tag[0])) != 0;
}

// The PosTable name of a Sejong or KAIST tag.
inline std::string SystemTagOf(const std::string& tag) {
  return IsKaistTag(tag) ? SystemTagOfKaist(tag) : SystemTagOfSejong(tag);
}

// The name GetStrPOS gives for a morpheme of the PosTable name `name`.
inline std::string CanonicalTag(const std::string& name) {
  return PosNameOf(PosCodeOf(name.c_str()));
}

// Coarse classes shared by the corpus tags and this analyzer's tags.
inline std::string CoarseSystem(const std::string& tag) {
  static const std::map<std::string, std::string> table = {
      {"N_", "N"},    {"NNG", "N"},   {"NNB", "N"},   {"NNP", "N"},
      {"NNU", "N"},   {"NNR", "N"},   {"NP", "N"},    {"NU", "N"},
      {"NNI", "N"},   {"NNC", "N"},   {"NFG", "N"},   {"NFU", "N"},
      {"VV", "VV"},   {"V_", "VV"},   {"VA", "VA"},   {"VX", "VX"},
      {"VC", "VC"},   {"MM", "MM"},   {"MA", "MA"},   {"MAG", "MA"},
      {"MAJ", "MA"},  {"IC", "IC"},   {"J_", "J"},    {"JK", "J"},
      {"JKG", "J"},   {"JX", "J"},    {"JC", "J"},    {"EP", "EP"},
      {"EM", "EM"},   {"EC", "EM"},   {"EF", "EM"},   {"E_", "EM"},
      {"ETN", "ETN"}, {"ETM", "ETM"}, {"XP", "XP"},   {"XSN", "XSN"},
      {"XSD", "XS"},  {"XSA", "XS"},  {"XSV", "XS"},  {"SC", "SC"},
      {"SN", "SN"},   {"SNC", "SN"},  {"SND", "SN"},  {"FL", "FL"},
      {"UW", "UW"}};
  auto it = table.find(tag);
  return it == table.end() ? "?" + tag : it->second;
}

inline std::string CoarseSejong(const std::string& tag) {
  std::string system = SystemTagOfSejong(tag);
  return system.empty() ? "?" + tag : CoarseSystem(system);
}

inline std::string CoarseKaist(const std::string& tag) {
  auto starts = [&](const char* prefix) {
    return tag.compare(0, std::strlen(prefix), prefix) == 0;
  };
  if (tag == "jp") return "VC";
  if (tag == "px") return "VX";
  if (tag == "ep") return "EP";
  if (tag == "etm") return "ETM";
  if (tag == "etn") return "ETN";
  if (tag == "ii") return "IC";
  if (tag == "f") return "FL";  // sl is a left bracket, not a letter
  if (tag == "nnc" || tag == "nno" || tag == "sn") return starts("s") ? "SN" : "N";
  if (starts("n")) return "N";
  if (starts("pv")) return "VV";
  if (starts("pa")) return "VA";
  if (starts("mm")) return "MM";
  if (starts("ma")) return "MA";
  if (starts("j")) return "J";
  if (starts("e")) return "EM";
  if (starts("xp")) return "XP";
  if (starts("xsn")) return "XSN";
  if (starts("xs")) return "XS";
  if (starts("s")) return "SC";
  return "?" + tag;
}

// The morphemes of a token as (form, corpus tag), UTF-8; false when its
// lemmas and tags don't pair up or a form is empty.
inline bool MorphemesOfToken(const Token& token, std::vector<Morpheme>& out) {
  std::vector<std::string> tags = Split(token.xpos, '+');
  std::vector<std::string> forms = tags.size() == 1
                                       ? std::vector<std::string>{token.lemma}
                                       : Split(token.lemma, '+');
  if (forms.size() != tags.size()) return false;
  for (size_t i = 0; i < tags.size(); ++i) {
    if (forms[i].empty() || tags[i].empty()) return false;
    out.push_back({forms[i], tags[i]});
  }
  return true;
}

// True for a number written in digits ("3", "1,828", "1.2").
inline bool WrittenInDigits(const std::string& form) {
  if (form.empty() || !std::isdigit(static_cast<unsigned char>(form[0]))) return false;
  for (char c : form) {
    if (!std::isdigit(static_cast<unsigned char>(c)) && c != '.' && c != ',') return false;
  }
  return true;
}

// Gold morphemes of a token with coarse tags; false as MorphemesOfToken.
// KAIST tags a number written in digits as a numeral (nnc); it is compared
// as SN, the class the other tag sets and the analyzer give it.
inline bool GoldOfToken(const Token& token, std::vector<Morpheme>& out) {
  std::vector<Morpheme> raw;
  if (!MorphemesOfToken(token, raw)) return false;
  bool kaist = std::islower(static_cast<unsigned char>(raw[0].tag[0])) != 0;
  for (Morpheme& m : raw) {
    std::string coarse = kaist ? CoarseKaist(m.tag) : CoarseSejong(m.tag);
    if (kaist && coarse == "N" && WrittenInDigits(m.form)) coarse = "SN";
    out.push_back({m.form, coarse});
  }
  return true;
}

// Reads the sentences of a CoNLL-U file and hands the tokens of each to
// `sentence` (multiword and empty nodes are passed over). False when the
// file can't be read.
template <typename F>
bool ReadConllu(const std::string& path, F sentence) {
  std::ifstream in(path);
  if (!in) return false;
  std::vector<Token> tokens;
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) {
      if (!tokens.empty()) sentence(tokens);
      tokens.clear();
      continue;
    }
    if (line[0] == '#') continue;
    std::vector<std::string> f = Split(line, '\t');
    if (f.size() < 10 || f[0].find_first_of("-.") != std::string::npos) continue;
    Token token;
    token.surface = f[1];
    token.lemma = f[2];
    token.xpos = f[4];
    token.spaceAfter = true;
    // Some treebanks keep only the stem in LEMMA and the whole morpheme
    // sequence in OrigLemma.
    for (const std::string& item : Split(f[9], '|')) {
      if (item == "SpaceAfter=No") token.spaceAfter = false;
      if (item.compare(0, 10, "OrigLemma=") == 0) token.lemma = item.substr(10);
    }
    tokens.push_back(token);
  }
  if (!tokens.empty()) sentence(tokens);
  return true;
}

// Loads a knowledge directory: its qrl.klg when there is one, else its
// source dictionaries with preanal.sys.dic. False when nothing loads.
inline bool LoadKnowledgeDirectory(Dictionary& dic, const std::string& dir) {
  const bool compiled = std::ifstream(dir + "/qrl.klg").good();
  if (dic.LoadKnowledge(dir.c_str(), compiled, true) < 1) return false;
  if (!compiled) dic.LoadPreAnalysis(dir.c_str(), "preanal.sys.dic", true);
  return true;
}

// Loads the tagger knowledge of dir/sinfo (rules and frequency model) with
// the weights that the Java host passes.
inline void LoadTaggerKnowledge(Dictionary& dic, const std::string& dir) {
  dic.LoadEojulRules(dir.c_str());
  dic.LoadGroupRules(dir.c_str());
  dic.LoadTagLists(dir.c_str());
  dic.SetTaggerWeights(550.96, 370.28, 54.11, 8.8, 50.0);
}

constexpr size_t kNoSpan = static_cast<size_t>(-1);

// The CP949 text of a sentence: its space-delimited eojuls (runs of tokens
// without space between them) joined by one space. An eojul that CP949
// can't hold is left out, its tokens and itself with the span kNoSpan.
struct SentenceText {
  std::string text;
  std::vector<std::pair<size_t, size_t>> tokenSpans;  // byte ranges
  std::vector<size_t> eojulOfToken;
  std::vector<std::pair<size_t, size_t>> eojulSpans;
};

inline SentenceText BuildText(const std::vector<Token>& tokens) {
  SentenceText s;
  size_t first = 0;
  while (first < tokens.size()) {
    size_t last = first;
    while (last + 1 < tokens.size() && !tokens[last].spaceAfter) ++last;
    std::vector<std::string> parts;
    bool usable = true;
    for (size_t t = first; t <= last && usable; ++t) {
      parts.push_back(ToCp949(tokens[t].surface));
      usable = !parts.back().empty();
    }
    const size_t eojul = s.eojulSpans.size();
    size_t start = kNoSpan;
    if (usable) {
      if (!s.text.empty()) s.text += ' ';
      start = s.text.size();
    }
    for (size_t t = first; t <= last; ++t) {
      s.eojulOfToken.push_back(eojul);
      if (!usable) {
        s.tokenSpans.emplace_back(kNoSpan, kNoSpan);
        continue;
      }
      const std::string& part = parts[t - first];
      s.tokenSpans.emplace_back(s.text.size(), s.text.size() + part.size());
      s.text += part;
    }
    s.eojulSpans.emplace_back(start, usable ? s.text.size() : kNoSpan);
    first = last + 1;
  }
  return s;
}

// True when the whole of `cp949` is a key with a josa reading.
inline bool IsJosaKey(const Dictionary& dic, const std::string& cp949) {
  SearchJEInfo sjei;
  int length = dic.SearchJE(cp949.c_str(), sjei, static_cast<int32_t>(cp949.size()));
  jeInfo josa;
  return length == static_cast<int>(cp949.size()) &&
         dic.GetJEInfo(josa, sjei, 0).text != nullptr;
}

// Splits a josa the analyzer returns glued into the josa it is made of, as
// the treebanks write them: a chain of keys (에서 + 도), longest key first,
// and a key that is itself a chain cut before its last josa: a josa of two
// syllables or more and a JX, 와 or the like behind it (에서도, 에서처럼),
// or any josa and the genitive (과의). 으로부터 is one josa, and so are
// the keys of a one-syllable josa and a JX (이나, 로부터). Unchanged when the
// text is no josa at all.
inline std::vector<std::string> JosaParts(const Dictionary& dic,
                                          const std::string& cp949) {
  static const std::vector<std::string> kLast = {
      ToCp949("는"), ToCp949("은"), ToCp949("도"), ToCp949("만"), ToCp949("의"),
      ToCp949("와"), ToCp949("과"), ToCp949("까지"), ToCp949("부터"),
      ToCp949("처럼"), ToCp949("보다"), ToCp949("조차"), ToCp949("마저"),
      ToCp949("라도"), ToCp949("나"), ToCp949("야"), ToCp949("요")};
  static const std::string kGenitive = ToCp949("의");
  static const std::vector<std::string> kWhole = {ToCp949("으로부터")};
  std::vector<std::string> parts;
  size_t pos = 0;
  while (pos < cp949.size()) {
    SearchJEInfo sjei;
    int length = dic.SearchJE(cp949.c_str() + pos, sjei,
                              static_cast<int32_t>(cp949.size() - pos));
    jeInfo josa;
    if (length <= 0 || dic.GetJEInfo(josa, sjei, 0).text == nullptr) {
      return {cp949};
    }
    std::string part = cp949.substr(pos, length);
    pos += length;
    if (std::find(kWhole.begin(), kWhole.end(), part) == kWhole.end()) {
      for (const std::string& last : kLast) {
        size_t head = part.size() - last.size();
        if (part.size() > last.size() && part.compare(head, last.size(), last) == 0 &&
            (head >= 4 || last == kGenitive) && IsJosaKey(dic, part.substr(0, head))) {
          std::vector<std::string> front = JosaParts(dic, part.substr(0, head));
          parts.insert(parts.end(), front.begin(), front.end());
          part = last;
          break;
        }
      }
    }
    parts.push_back(part);
  }
  return parts;
}

// The morphemes of candidate c as the gold side writes them: coarse tags,
// UTF-8 forms, a glued josa chain cut into its keys. `raw` gets the
// candidate as form/TAG+... when given.
inline std::vector<Morpheme> CandidateMorphemes(const Dictionary& dic,
                                                QR_Eojul& e, int c,
                                                std::string* raw = nullptr) {
  std::vector<Morpheme> out;
  for (int m = 0; m < e.GetCount(c); ++m) {
    std::string lexicon = e.GetLexicon(c, m) ? e.GetLexicon(c, m) : "";
    std::string tag = e.GetStrPOS(c, m) ? e.GetStrPOS(c, m) : "";
    std::string coarse = CoarseSystem(tag);
    if (raw != nullptr) {
      if (!raw->empty()) *raw += "+";
      *raw += Convert(lexicon, "cp949", "utf-8") + "/" + tag;
    }
    std::vector<std::string> parts = coarse == "J"
                                         ? JosaParts(dic, lexicon)
                                         : std::vector<std::string>{lexicon};
    for (const std::string& part : parts) {
      out.push_back({Convert(part, "cp949", "utf-8"), coarse});
    }
  }
  return out;
}

}  // namespace treebank
}  // namespace Quorel

#endif  // QRLSL_TOOLS_TREEBANK_H_
