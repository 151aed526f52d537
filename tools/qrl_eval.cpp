// qrl_eval: measures the analyzer on a CoNLL-U treebank whose LEMMA column
// holds the gold morphemes joined by "+" and XPOS their tags (Sejong tags,
// or the KAIST tags when they are in lower case).
//
//   qrl_eval [-k DIR] [-e N] [-s] [-r | -f LIST] [-t MODE] [-x DIR]
//            [-o N=V]... [-d FILE] FILE.conllu...
//
// Each sentence is analysed with RunWithString and tagged (mode 0 unless -t);
// the best candidate of each eojul is compared with the gold analysis as
// morphemes of (form, coarse tag). Reports morpheme precision, recall and F1
// (multisets per sentence), segmentation F1 (forms alone), eojul accuracy
// and the most frequent error kinds. -s prints one summary line only.
// Endings are compared with the spellings of one ending folded together
// (FoldAllomorphs in tools/eval_compare.h: 아/어, 으 and 은/ㄴ); -f chooses
// the folds, -r compares them as written.
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
#include "tools/eval_compare.h"
#include "tools/treebank.h"

namespace {

using Quorel::evaluation::FoldAllomorphs;
using Quorel::treebank::Morpheme;

// One space-delimited eojul of a sentence (one or more treebank tokens).
struct GoldEojul {
  std::string surface;  // UTF-8
  std::vector<Morpheme> gold;
  std::vector<Morpheme> system;
  std::string rawSystem;  // the system's analysis as form/TAG+..., for errors
  bool usable = true;     // false when its gold lemmas and tags don't pair up
};

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

// Adds one sentence to `t`; the endings are folded on both sides first by
// the bits of `folds` (0: as written). Wrong eojuls go to `dump` when open.
void Score(const std::vector<GoldEojul>& eojuls, unsigned folds, Totals& t,
           std::ostream* dump) {
  std::vector<Morpheme> gold, system;
  for (GoldEojul e : eojuls) {
    if (!e.usable) {
      ++t.skippedEojuls;
      continue;
    }
    FoldAllomorphs(e.gold, folds);
    FoldAllomorphs(e.system, folds);
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
    if (dump != nullptr) {
      *dump << kind << '\t' << e.surface << '\t' << Render(e.gold) << '\t'
            << e.rawSystem << '\n';
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
  Evaluator(Quorel::Dictionary& dic, Quorel::QR_Analyzer& analyzer, int mode)
      : dic_(dic), analyzer_(analyzer), mode_(mode) {}

  // Analyses one sentence and fills the system morphemes of its eojuls.
  void Analyse(const Quorel::treebank::SentenceText& text,
               std::vector<GoldEojul>& eojuls) {
    if (text.text.empty()) return;
    analyzer_.RunWithString(text.text.c_str());
    analyzer_.Tagging(mode_);
    int count = analyzer_.GetEojulCountInSentence();
    for (int i = 0; i < count; ++i) {
      size_t offset = static_cast<size_t>(analyzer_.GetEojulOffsetInSentence(i));
      for (size_t k = 0; k < eojuls.size(); ++k) {
        const auto& span = text.eojulSpans[k];
        if (span.first != Quorel::treebank::kNoSpan && offset >= span.first &&
            offset < span.second) {
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
    if (best < 0) return;
    std::vector<Morpheme> morphemes =
        Quorel::treebank::CandidateMorphemes(dic_, e, best, &target.rawSystem);
    target.system.insert(target.system.end(), morphemes.begin(), morphemes.end());
  }

  Quorel::Dictionary& dic_;
  Quorel::QR_Analyzer& analyzer_;
  int mode_;
};

// The space-delimited eojuls of a sentence with their gold morphemes; an
// eojul that CP949 can't hold or whose lemmas and tags don't pair up is
// marked unusable.
std::vector<GoldEojul> GoldEojuls(const std::vector<Quorel::treebank::Token>& tokens,
                                  const Quorel::treebank::SentenceText& text) {
  std::vector<GoldEojul> eojuls(text.eojulSpans.size());
  for (size_t t = 0; t < tokens.size(); ++t) {
    GoldEojul& e = eojuls[text.eojulOfToken[t]];
    e.surface += tokens[t].surface;
    if (!Quorel::treebank::GoldOfToken(tokens[t], e.gold)) e.usable = false;
    if (text.tokenSpans[t].first == Quorel::treebank::kNoSpan) e.usable = false;
  }
  return eojuls;
}

void Summary(const char* label, const Totals& t) {
  auto ratio = [](long a, long b) { return b > 0 ? double(a) / double(b) : 0.0; };
  double p = ratio(t.matched, t.systemMorphemes);
  double r = ratio(t.matched, t.goldMorphemes);
  double f1 = p + r > 0 ? 2 * p * r / (p + r) : 0.0;
  double sp = ratio(t.matchedForms, t.systemForms);
  double sr = ratio(t.matchedForms, t.goldForms);
  double sf1 = sp + sr > 0 ? 2 * sp * sr / (sp + sr) : 0.0;
  double acc = ratio(t.correctEojuls, t.eojuls);
  std::printf("%smorpheme_f1=%.4f precision=%.4f recall=%.4f segmentation_f1=%.4f "
              "eojul_accuracy=%.4f sentences=%ld eojuls=%ld skipped=%ld\n",
              label, f1, p, r, sf1, acc, t.sentences, t.eojuls, t.skippedEojuls);
}

// The headline figures, then (unless summaryOnly) the figures of the other
// way of comparing endings and the error kinds of the headline.
void Report(const Totals& t, const Totals& other, bool folded, int errorLines,
            bool summaryOnly) {
  Summary("", t);
  if (summaryOnly) return;
  Summary(folded ? "endings as written: " : "endings folded: ", other);
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

// The folds named in a comma-separated list; false on an unknown name.
bool ParseFolds(const std::string& list, unsigned& folds) {
  folds = 0;
  std::istringstream in(list);
  std::string name;
  while (std::getline(in, name, ',')) {
    if (name == "harmony") {
      folds |= Quorel::evaluation::kFoldHarmony;
    } else if (name == "linking") {
      folds |= Quorel::evaluation::kFoldLinkingVowel;
    } else if (name == "all") {
      folds |= Quorel::evaluation::kFoldAll;
    } else if (name != "none") {
      return false;
    }
  }
  return true;
}

int Usage() {
  std::fputs("usage: qrl_eval [options] FILE.conllu...\n"
             "  -k DIR   knowledge directory (default: knowledge)\n"
             "  -e N     error kinds to list (default 20)\n"
             "  -s       one summary line only\n"
             "  -f LIST  fold the spellings of an ending before comparing:\n"
             "           harmony (아/어), linking (으, 은/ㄴ), all (default),\n"
             "           or none; LIST joins them with commas\n"
             "  -r       compare endings as written (same as -f none)\n"
             "  -t MODE  tagging mode, 0 or 1 (default 0); mode 1 loads the tagger\n"
             "           knowledge of DIR/sinfo\n"
             "  -x DIR   take the tagger knowledge of mode 1 from DIR/sinfo\n"
             "  -o N=V   analyzer option N set to V; repeatable\n"
             "  -d FILE  write each wrong eojul to FILE: kind, surface, gold,\n"
             "           system, TAB-separated\n",
             stderr);
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  std::string knowledgeDir = "knowledge";
  std::string taggerDir;  // sinfo/ of mode 1; the knowledge directory's by default
  std::string dumpPath;
  int errorLines = 20;
  int mode = 0;
  bool summaryOnly = false;
  unsigned folds = Quorel::evaluation::kFoldAll;
  std::vector<std::pair<int, int>> options;
  std::vector<std::string> files;
  for (int i = 1; i < argc; ++i) {
    std::string arg = argv[i];
    bool hasValue = i + 1 < argc;
    if (arg == "-k" && hasValue) {
      knowledgeDir = argv[++i];
    } else if (arg == "-e" && hasValue) {
      errorLines = std::atoi(argv[++i]);
    } else if (arg == "-t" && hasValue) {
      mode = std::atoi(argv[++i]);
    } else if (arg == "-x" && hasValue) {
      taggerDir = argv[++i];
    } else if (arg == "-d" && hasValue) {
      dumpPath = argv[++i];
    } else if (arg == "-o" && hasValue) {
      std::string value = argv[++i];
      size_t equals = value.find('=');
      if (equals == std::string::npos) return Usage();
      options.emplace_back(std::atoi(value.substr(0, equals).c_str()),
                           std::atoi(value.substr(equals + 1).c_str()));
    } else if (arg == "-s") {
      summaryOnly = true;
    } else if (arg == "-r") {
      folds = 0;
    } else if (arg == "-f" && hasValue) {
      if (!ParseFolds(argv[++i], folds)) return Usage();
    } else if (arg == "-h" || arg == "--help" || arg[0] == '-') {
      return Usage();
    } else {
      files.push_back(arg);
    }
  }
  if (files.empty()) return Usage();

  Quorel::Dictionary dic(false);
  if (!Quorel::treebank::LoadKnowledgeDirectory(dic, knowledgeDir)) {
    std::fprintf(stderr, "qrl_eval: can't load the knowledge in %s\n",
                 knowledgeDir.c_str());
    return 1;
  }
  if (mode == 1) {
    Quorel::treebank::LoadTaggerKnowledge(
        dic, taggerDir.empty() ? knowledgeDir : taggerDir);
  }
  std::unique_ptr<Quorel::QR_Analyzer> analyzer(Quorel::CreateAnalyzer(&dic));
  analyzer->SetExOption(1);
  for (const auto& option : options) analyzer->SetOption(option.first, option.second);
  std::ofstream dump;
  if (!dumpPath.empty()) dump.open(dumpPath);
  Evaluator evaluator(dic, *analyzer, mode);
  Totals totals, other;
  for (const std::string& file : files) {
    bool ok = Quorel::treebank::ReadConllu(
        file, [&](const std::vector<Quorel::treebank::Token>& tokens) {
      Quorel::treebank::SentenceText text = Quorel::treebank::BuildText(tokens);
      std::vector<GoldEojul> eojuls = GoldEojuls(tokens, text);
      evaluator.Analyse(text, eojuls);
      Score(eojuls, folds, totals, dump.is_open() ? &dump : nullptr);
      Score(eojuls, folds != 0 ? 0 : Quorel::evaluation::kFoldAll, other, nullptr);
    });
    if (!ok) {
      std::fprintf(stderr, "qrl_eval: can't read %s\n", file.c_str());
      return 1;
    }
  }
  Report(totals, other, folds != 0, errorLines, summaryOnly);
  return 0;
}
