// qrl_eval: measures the analyzer on a CoNLL-U treebank whose LEMMA column
// holds the gold morphemes joined by "+" and XPOS their tags (Sejong tags,
// or the KAIST tags when they are in lower case).
//
//   qrl_eval [-k DIR] [-e N] [-s] FILE.conllu...
//
// Each sentence is analysed with RunWithString and tagged with Tagging(0);
// the best candidate of each eojul is compared with the gold analysis as
// morphemes of (form, coarse tag). Reports morpheme precision, recall and F1
// (multisets per sentence), segmentation F1 (forms alone), eojul accuracy
// and the most frequent error kinds. -s prints one summary line only.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "knowledge/dictionary.h"
#include "qrlsl/qrlsl.h"
#include "text/charset.h"
#include "trie/lookup_records.h"

namespace {

struct Morpheme {
  std::string form;  // UTF-8
  std::string tag;   // coarse tag
  bool operator<(const Morpheme& o) const {
    return form != o.form ? form < o.form : tag < o.tag;
  }
  bool operator==(const Morpheme& o) const {
    return form == o.form && tag == o.tag;
  }
};

// One space-delimited eojul of a sentence (one or more treebank tokens).
struct GoldEojul {
  std::string surface;  // UTF-8
  std::vector<Morpheme> gold;
  std::vector<Morpheme> system;
  std::string rawSystem;  // the system's analysis as form/TAG+..., for errors
  bool usable = true;     // false when its gold lemmas and tags don't pair up
};

std::string Convert(const std::string& text, const char* from, const char* to) {
  Quorel::WideChar* wide = Quorel::ToWide(text.c_str(), from);
  char* bytes = Quorel::FromWide(wide, to);
  std::string result = bytes == nullptr ? "" : bytes;
  Quorel::FreeBytes(bytes);
  Quorel::FreeWide(wide);
  return result;
}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::string part;
  std::istringstream in(text);
  while (std::getline(in, part, separator)) parts.push_back(part);
  if (!text.empty() && text.back() == separator) parts.push_back("");
  return parts;
}

// Coarse classes shared by the Sejong tags, the KAIST tags and this
// analyzer's tags; the table is documented in knowledge-src/README.md.
std::string CoarseSejong(const std::string& tag) {
  static const std::map<std::string, std::string> table = {
      {"NNG", "N"},   {"NNP", "N"},   {"NNB", "N"},   {"NR", "N"},
      {"NP", "N"},    {"NF", "N"},    {"NV", "N"},    {"NA", "N"},
      {"XR", "N"},    {"VV", "VV"},   {"VA", "VA"},   {"VX", "VX"},
      {"VCP", "VC"},  {"VCN", "VA"},  {"MM", "MM"},   {"MAG", "MA"},
      {"MAJ", "MA"},  {"IC", "IC"},   {"JKS", "J"},   {"JKC", "J"},
      {"JKG", "J"},   {"JKO", "J"},   {"JKB", "J"},   {"JKV", "J"},
      {"JKQ", "J"},   {"JX", "J"},    {"JC", "J"},    {"EP", "EP"},
      {"EF", "EM"},   {"EC", "EM"},   {"ETN", "ETN"}, {"ETM", "ETM"},
      {"XPN", "XP"},  {"XSN", "XSN"}, {"XSV", "XS"},  {"XSA", "XS"},
      {"SF", "SC"},   {"SP", "SC"},   {"SS", "SC"},   {"SE", "SC"},
      {"SO", "SC"},   {"SW", "SC"},   {"SN", "SN"},   {"SL", "FL"},
      {"SH", "FL"}};
  auto it = table.find(tag);
  return it == table.end() ? "?" + tag : it->second;
}

std::string CoarseKaist(const std::string& tag) {
  auto starts = [&](const char* prefix) {
    return tag.compare(0, std::strlen(prefix), prefix) == 0;
  };
  if (tag == "jp") return "VC";
  if (tag == "px") return "VX";
  if (tag == "ep") return "EP";
  if (tag == "etm") return "ETM";
  if (tag == "etn") return "ETN";
  if (tag == "ii") return "IC";
  if (tag == "f" || tag == "sl" || tag == "sh") return "FL";
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

std::string CoarseSystem(const std::string& tag) {
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

// Gold morphemes of one token; false when lemmas and tags don't pair up.
bool GoldOfToken(const std::string& lemma, const std::string& xpos,
                 std::vector<Morpheme>& out) {
  std::vector<std::string> tags = Split(xpos, '+');
  std::vector<std::string> forms =
      tags.size() == 1 ? std::vector<std::string>{lemma} : Split(lemma, '+');
  if (forms.size() != tags.size()) return false;
  bool kaist = !tags.empty() && !tags[0].empty() &&
               std::islower(static_cast<unsigned char>(tags[0][0]));
  for (size_t i = 0; i < tags.size(); ++i) {
    if (forms[i].empty()) return false;
    out.push_back({forms[i], kaist ? CoarseKaist(tags[i]) : CoarseSejong(tags[i])});
  }
  return true;
}

// Splits a josa the analyzer returns glued (에서도: the chain 에서 + 도) into
// the josa keys it is made of, longest key first; unchanged when it is not
// such a chain.
std::vector<std::string> JosaParts(const Quorel::Dictionary& dic,
                                   const std::string& cp949) {
  std::vector<std::string> parts;
  size_t pos = 0;
  while (pos < cp949.size()) {
    Quorel::SearchJEInfo sjei;
    int length = dic.SearchJE(cp949.c_str() + pos, sjei,
                              static_cast<int32_t>(cp949.size() - pos));
    Quorel::jeInfo josa;
    if (length <= 0 || dic.GetJEInfo(josa, sjei, 0).text == nullptr) {
      return {cp949};
    }
    parts.push_back(cp949.substr(pos, length));
    pos += length;
  }
  return parts;
}

struct Totals {
  long goldMorphemes = 0, systemMorphemes = 0, matched = 0;
  long goldForms = 0, systemForms = 0, matchedForms = 0;
  long eojuls = 0, correctEojuls = 0, skippedEojuls = 0, sentences = 0;
  std::map<std::string, long> errorKinds;
  std::map<std::string, std::string> examples;
};

long MultisetOverlap(std::vector<Morpheme> a, std::vector<Morpheme> b) {
  std::sort(a.begin(), a.end());
  std::sort(b.begin(), b.end());
  std::vector<Morpheme> common;
  std::set_intersection(a.begin(), a.end(), b.begin(), b.end(),
                        std::back_inserter(common));
  return static_cast<long>(common.size());
}

std::vector<Morpheme> FormsOnly(std::vector<Morpheme> v) {
  for (Morpheme& m : v) m.tag.clear();
  return v;
}

// The kind of mistake of one wrong eojul, for the error table.
std::string ErrorKind(const GoldEojul& e) {
  const std::vector<Morpheme>& g = e.gold;
  const std::vector<Morpheme>& s = e.system;
  if (s.empty()) return "no analysis";
  if (e.rawSystem.find("/NNR") != std::string::npos &&
      e.rawSystem.find('+') == std::string::npos && g.size() > 1) {
    return "unknown word (NNR) for " + std::to_string(g.size()) + " morphemes";
  }
  if (FormsOnly(g) == FormsOnly(s)) {
    for (size_t i = 0; i < g.size(); ++i) {
      if (!(g[i] == s[i])) return "tag " + g[i].tag + " read as " + s[i].tag;
    }
  }
  // First differing position of the forms tells the segmentation mistake.
  size_t i = 0;
  while (i < g.size() && i < s.size() && g[i] == s[i]) ++i;
  std::string gt = i < g.size() ? g[i].tag : "end";
  std::string st = i < s.size() ? s[i].tag : "end";
  return "segmentation at " + gt + " (system " + st + ")";
}

std::string Render(const std::vector<Morpheme>& v) {
  std::string out;
  for (const Morpheme& m : v) {
    if (!out.empty()) out += "+";
    out += m.form + "/" + m.tag;
  }
  return out;
}

void Score(std::vector<GoldEojul>& eojuls, Totals& t) {
  std::vector<Morpheme> gold, system;
  for (GoldEojul& e : eojuls) {
    if (!e.usable) {
      ++t.skippedEojuls;
      continue;
    }
    gold.insert(gold.end(), e.gold.begin(), e.gold.end());
    system.insert(system.end(), e.system.begin(), e.system.end());
    ++t.eojuls;
    if (e.gold == e.system) {
      ++t.correctEojuls;
      continue;
    }
    std::string kind = ErrorKind(e);
    if (t.errorKinds[kind]++ == 0) {
      t.examples[kind] = e.surface + "  gold " + Render(e.gold) + "  system " +
                         e.rawSystem;
    }
  }
  t.goldMorphemes += static_cast<long>(gold.size());
  t.systemMorphemes += static_cast<long>(system.size());
  t.matched += MultisetOverlap(gold, system);
  t.goldForms += static_cast<long>(gold.size());
  t.systemForms += static_cast<long>(system.size());
  t.matchedForms += MultisetOverlap(FormsOnly(gold), FormsOnly(system));
  ++t.sentences;
}

class Evaluator {
 public:
  Evaluator(Quorel::Dictionary& dic, Quorel::QR_Analyzer& analyzer)
      : dic_(dic), analyzer_(analyzer) {}

  // Analyses one sentence's eojuls and fills their system morphemes.
  void Analyse(std::vector<GoldEojul>& eojuls) {
    std::string text;
    std::vector<std::pair<size_t, size_t>> spans;  // CP949 byte ranges
    for (GoldEojul& e : eojuls) {
      std::string cp949 = Convert(e.surface, "utf-8", "cp949");
      if (cp949.empty() || Convert(cp949, "cp949", "utf-8") != e.surface) {
        e.usable = false;  // characters CP949 can't hold
        spans.emplace_back(std::string::npos, std::string::npos);
        continue;
      }
      if (!text.empty()) text += ' ';
      spans.emplace_back(text.size(), text.size() + cp949.size());
      text += cp949;
    }
    if (text.empty()) return;
    analyzer_.RunWithString(text.c_str());
    analyzer_.Tagging(0);
    int count = analyzer_.GetEojulCountInSentence();
    for (int i = 0; i < count; ++i) {
      size_t offset = static_cast<size_t>(analyzer_.GetEojulOffsetInSentence(i));
      for (size_t k = 0; k < eojuls.size(); ++k) {
        if (spans[k].first != std::string::npos && offset >= spans[k].first &&
            offset < spans[k].second) {
          Append(*analyzer_.GetEojulInSentence(i), eojuls[k]);
          break;
        }
      }
    }
  }

 private:
  void Append(Quorel::QR_Eojul& e, GoldEojul& target) {
    int best = e.BestCandidate();
    if (best < 0 || best >= e.GetListSize()) best = e.GetListSize() > 0 ? 0 : -1;
    for (int m = 0; best >= 0 && m < e.GetCount(best); ++m) {
      std::string lexicon = e.GetLexicon(best, m) ? e.GetLexicon(best, m) : "";
      std::string tag = e.GetStrPOS(best, m) ? e.GetStrPOS(best, m) : "";
      std::string coarse = CoarseSystem(tag);
      if (!target.rawSystem.empty()) target.rawSystem += "+";
      target.rawSystem += Convert(lexicon, "cp949", "utf-8") + "/" + tag;
      std::vector<std::string> parts =
          coarse == "J" ? JosaParts(dic_, lexicon) : std::vector<std::string>{lexicon};
      for (const std::string& part : parts) {
        target.system.push_back({Convert(part, "cp949", "utf-8"), coarse});
      }
    }
  }

  Quorel::Dictionary& dic_;
  Quorel::QR_Analyzer& analyzer_;
};

// Reads sentences of a CoNLL-U file and hands each to `sentence`.
template <typename F>
bool ReadConllu(const std::string& path, F sentence) {
  std::ifstream in(path);
  if (!in) return false;
  std::vector<GoldEojul> eojuls;
  bool open = false;  // the last token had SpaceAfter=No
  std::string line;
  while (std::getline(in, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty()) {
      if (!eojuls.empty()) sentence(eojuls);
      eojuls.clear();
      open = false;
      continue;
    }
    if (line[0] == '#') continue;
    std::vector<std::string> f = Split(line, '\t');
    if (f.size() < 10 || f[0].find_first_of("-.") != std::string::npos) continue;
    if (!open || eojuls.empty()) eojuls.emplace_back();
    GoldEojul& e = eojuls.back();
    e.surface += f[1];
    if (!GoldOfToken(f[2], f[4], e.gold)) e.usable = false;
    open = f[9].find("SpaceAfter=No") != std::string::npos;
  }
  if (!eojuls.empty()) sentence(eojuls);
  return true;
}

void Report(const Totals& t, int errorLines, bool summaryOnly) {
  auto ratio = [](long a, long b) { return b > 0 ? double(a) / double(b) : 0.0; };
  double p = ratio(t.matched, t.systemMorphemes);
  double r = ratio(t.matched, t.goldMorphemes);
  double f1 = p + r > 0 ? 2 * p * r / (p + r) : 0.0;
  double sp = ratio(t.matchedForms, t.systemForms);
  double sr = ratio(t.matchedForms, t.goldForms);
  double sf1 = sp + sr > 0 ? 2 * sp * sr / (sp + sr) : 0.0;
  double acc = ratio(t.correctEojuls, t.eojuls);
  std::printf("morpheme_f1=%.4f precision=%.4f recall=%.4f segmentation_f1=%.4f "
              "eojul_accuracy=%.4f sentences=%ld eojuls=%ld skipped=%ld\n",
              f1, p, r, sf1, acc, t.sentences, t.eojuls, t.skippedEojuls);
  if (summaryOnly) return;
  std::vector<std::pair<long, std::string>> kinds;
  for (const auto& k : t.errorKinds) kinds.emplace_back(k.second, k.first);
  std::sort(kinds.rbegin(), kinds.rend());
  std::printf("\nMost frequent error kinds (wrong eojuls: %ld):\n",
              t.eojuls - t.correctEojuls);
  for (int i = 0; i < errorLines && i < static_cast<int>(kinds.size()); ++i) {
    std::printf("%7ld  %s\n         e.g. %s\n", kinds[i].first,
                kinds[i].second.c_str(), t.examples.at(kinds[i].second).c_str());
  }
}

int Usage() {
  std::fputs("usage: qrl_eval [-k DIR] [-e N] [-s] FILE.conllu...\n"
             "  -k DIR  knowledge directory (default: knowledge)\n"
             "  -e N    error kinds to list (default 20)\n"
             "  -s      one summary line only\n",
             stderr);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  std::string knowledgeDir = "knowledge";
  int errorLines = 20;
  bool summaryOnly = false;
  std::vector<std::string> files;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    if (arg == "-k" && i + 1 < argc) {
      knowledgeDir = argv[++i];
    } else if (arg == "-e" && i + 1 < argc) {
      errorLines = std::atoi(argv[++i]);
    } else if (arg == "-s") {
      summaryOnly = true;
    } else if (arg == "-h" || arg == "--help" || arg[0] == '-') {
      return Usage();
    } else {
      files.push_back(arg);
    }
  }
  if (files.empty()) return Usage();

  Quorel::Dictionary dic(false);
  bool compiled = std::ifstream(knowledgeDir + "/qrl.klg").good();
  if (dic.LoadKnowledge(knowledgeDir.c_str(), compiled, true) < 1) {
    std::fprintf(stderr, "qrl_eval: can't load the knowledge in %s\n",
                 knowledgeDir.c_str());
    return 1;
  }
  if (!compiled) dic.LoadPreAnalysis(knowledgeDir.c_str(), "preanal.sys.dic", true);
  std::unique_ptr<Quorel::QR_Analyzer> analyzer(Quorel::CreateAnalyzer(&dic));
  analyzer->SetExOption(1);
  Evaluator evaluator(dic, *analyzer);
  Totals totals;
  for (const std::string& file : files) {
    bool ok = ReadConllu(file, [&](std::vector<GoldEojul>& eojuls) {
      evaluator.Analyse(eojuls);
      Score(eojuls, totals);
    });
    if (!ok) {
      std::fprintf(stderr, "qrl_eval: can't read %s\n", file.c_str());
      return 1;
    }
  }
  Report(totals, errorLines, summaryOnly);
  return 0;
}
