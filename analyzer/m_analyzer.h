// MAnalyzer: the concrete QR_Analyzer. It owns all working memory of an
// analysis (scratch eojuls, the analysis stack, the line buffer), carries
// the numbered options and runs the pipeline: one token in RunWithEojul, a
// whole text in RunWithString, a stream line by line in RunFile.
//
// Ownership: built from a path it owns its Dictionary and its Eojul; built
// on a knowledge object it owns only its Eojul; given both it owns neither.
// One caller at a time; several analyzers may share one Dictionary.
#ifndef QRLSL_ANALYZER_M_ANALYZER_H_
#define QRLSL_ANALYZER_M_ANALYZER_H_

#include <cstdint>
#include <string>
#include <vector>

#include "analyzer/eojul_pool.h"
#include "analyzer/noun_divider.h"
#include "analyzer/token_memo.h"
#include "eojul/eojul.h"
#include "eojul/text_stream.h"
#include "tagger/post_passes.h"
#include "tagger/tagger.h"
#include "knowledge/dictionary.h"
#include "knowledge/suffix_lists.h"
#include "qrlsl/qr_analyzer.h"
#include "text/strings.h"
#include "trie/lookup_records.h"

namespace Quorel {

struct SyllableRec;

// One record of the analysis stack: a candidate stem, the endings split off
// at this level, and their POS bits. Level k+1 analyses a part of the stem
// of level k; a finished candidate reads the top stem, then the endings from
// the top level down to 0.
struct LevelRec {
  StringEx stem;
  StringEx ending;
  uint32_t endingBits = 0;
};

// The three syllables whose 하 contracts with the next ending.
enum class HaContraction { kChi, kKe, kKi };

// Status word of the analysis routes.
namespace RouteStatus {
constexpr int kNoSyllable = 1;   // a syllable lookup failed
constexpr int kPending = 2;      // a partial analysis was stored
constexpr int kCandidate = 4;    // a candidate was added
constexpr int kGoOn = 16;        // 게 read as an ㅎ irregular: keep searching
}  // namespace RouteStatus

// Bits of SetExOption.
namespace ExOption {
constexpr unsigned char kKeepSentence = 1;
constexpr unsigned char kPrint = 2;
constexpr unsigned char kTaggingMode = 4;
}  // namespace ExOption

class MAnalyzer : public QR_Analyzer {
 public:
  static constexpr int kOptionCount = 20;
  // Options from 20 on go beyond the catalogue; all are off (0) by default.
  // 20: an eojul left as one unknown word gives up the josa at its end.
  static constexpr int kUnknownEndingOption = 20;
  // 21: tagging mode 1 places, of candidates with the same tag list, the
  // one that BestCandidate would take among them.
  static constexpr int kScoreTieOption = 21;
  // 22: tagging mode 1 leaves an eojul whose word its frequency model
  // doesn't know to the rules of mode 0.
  static constexpr int kCascadeForUnknownOption = 22;
  static constexpr int kExtendedOptionCount = 23;
  static constexpr int kLevelCount = 5;
  static constexpr int kLineLimit = 66560;
  // N_ with NNG, NNP, NNU, NP, NNI, NNC, NFG and NFU.
  static constexpr uint32_t kDefaultIndexMask = 0x40003C2D;

  explicit MAnalyzer(const char* knowledgePath);
  explicit MAnalyzer(QR_Knowledge* knowledge);
  MAnalyzer(QR_Knowledge* knowledge, QR_Eojul* eojul);
  ~MAnalyzer() override;
  MAnalyzer(const MAnalyzer&) = delete;
  MAnalyzer& operator=(const MAnalyzer&) = delete;

  void SetKnowledge(QR_Knowledge* knowledge) override;
  int SetEojul(QR_Eojul* eojul) override;
  void SetOption(int option, int value) override;
  unsigned char SetExOption(int flags) override;
  int RunWithEojul() override;
  int RunWithString(const char* text) override;
  int RunWithString(const char* text, const char* outputPath) override;
  int RunFile() override;
  int RunFile(const char* inputPath) override;
  int RunFile(const char* inputPath, const char* outputPath) override;
  QR_Eojul* GetEojulInSentence(unsigned int index) override;
  int GetEojulCountInSentence() override;
  void SetRawOutput() override;
  int GetEojulOffsetInSentence(unsigned int index) override;
  void Tagging(int mode) override;

  // The option byte of `option` (0 for 9 and 10, which have none).
  signed char Option(int option) const { return options[option]; }
  Eojul* CurrentEojul() { return static_cast<Eojul*>(eojul); }
  // The bound knowledge as the one concrete class it can be.
  Dictionary* Knowledge() { return static_cast<Dictionary*>(knowledge); }
  const Dictionary* Knowledge() const {
    return static_cast<const Dictionary*>(knowledge);
  }

  // The per-token cascade: leaves the candidates of `e`, unscored. Returns
  // the analysis result (0 none); re-entered for a sub-token (type 0x80).
  int AnalyzeEojul(Eojul& e);
  // The same for a surface of `len` bytes (its strlen), known to the caller.
  int AnalyzeEojul(Eojul& e, int32_t len);

  // ---- Josa and eomi search (status words: RouteStatus) ----
  // Fills jeCandidates with every split point of `e`, longest ending first;
  // a stored record has the ending's start in `length` and the end of the
  // first key in `reserved` when a chain of JX keys follows. Returns 1.
  int SearchSplits(Eojul& e, bool rePass);
  // The same over `text` of `length` bytes (no NUL among them).
  int SearchSplitsOf(const char* text, int32_t length, bool rePass);
  // Analysis of `e` with the ending that starts at sjei.length.
  int AnalyzeSplit(Eojul& e, const SearchJEInfo& sjei);
  // The eomi readings of sjei after the stem of the top level.
  int AnalyzeEomi(Eojul& e, const SearchJEInfo& sjei);
  // The reading of the bare eomi ㄴ, ㄹ or ㅁ for a final (5, 9, 17); blank
  // for any other.
  jeInfo BareEomi(int jong) const;
  // False when an ending beginning with 으 follows an open stem, or when
  // either syllable is missing.
  static bool CheckJoin(const char* stem, const char* ending);
  // The same for a stem (no NUL within its length): nothing is measured.
  static bool CheckJoin(const StringEx& stem, const char* ending);

  // ---- Stems ----
  // The top stem as a noun of the classes in `mask`, or as an adverb, with
  // the endings of the levels.
  int NounStem(Eojul& e, uint32_t mask);
  // The top stem as a plain predicate (VV, VA, VX as `mask` allows) with
  // the ending as written, then with the fused reading.
  int WholeStem(Eojul& e, uint32_t mask);
  // SearchMain of `key`, with the same answer and `si`. A key that is a
  // prefix of wordHitsText is answered from wordHits, which hold every word
  // that begins that text; any other key walks the trie.
  int SearchStem(const StringEx& key, SearchInfo& si) const;
  // Fill counts of the pending noun tails (copula, predicative suffix).
  int32_t PendingNounSuffix() const { return pendingNounSuffix; }
  int32_t PendingNounOther() const { return pendingNounOther; }

  // ---- Mixed tokens: digits, Latin, symbols and user nouns ----
  // Fills userNounHits with the user nouns that are not plain Hangul,
  // starting at the head of each digit or Latin run and at each two-byte
  // character of `text`. Returns the number of hits.
  int FindUserNouns(const char* text, unsigned len);
  // Adds the morphemes of the longest hit at `pos` of `text` to the open
  // candidate of `e`; the hit's index, or -1 (no hit, or one that would cut
  // a Latin or digit run).
  int EmitUserNoun(Eojul& e, unsigned pos, StringEx& text);
  // Adds workText as a Latin run: FL, or the pieces of its user-noun entry.
  void EmitForeign(Eojul& e);
  // A Hangul run `part` beside a number, at byte `start` of the token:
  // counters, their josa, and the rest as a word. -1 or -2 on failure.
  int AnalyzeCountedPart(Eojul& e, StringEx& part, unsigned start);
  // A Hangul run inside a token: a josa after what precedes it, the copula,
  // or the run as a word of its own. -1 or -2 on failure.
  int AnalyzeHangulPart(Eojul& e, StringEx& part, unsigned start);
  const std::vector<SearchInfo>& UserNounHits() const { return userNounHits; }

  // ---- Whole word, mixed tokens, noun analysis and the handlers of sound
  // changes and stem structure (status words, or as each caller expects) ----
  int AnalyzeWhole(Eojul& e);
  int AnalyzeMixed(Eojul& e);
  int AnalyzeNoun(Eojul& e, int mode, int level);
  int CommitPending(Eojul& e);
  int AnalyzeRemainder(Eojul& e);
  int LDrop(Eojul& e);
  int EuDrop(Eojul& e);
  int PuIrregular(Eojul& e);
  int SIrregular(Eojul& e);
  int DIrregular(Eojul& e);
  int BIrregular(Eojul& e);
  int ReuIrregular(Eojul& e);
  int HaYeo(Eojul& e);
  int ReoIrregular(Eojul& e);
  int HIrregular(Eojul& e);
  int AeContract(Eojul& e);
  int WaContract(Eojul& e);
  int WaeContract(Eojul& e);
  int EoElided(Eojul& e, unsigned wordBits);
  int AeElided(Eojul& e, unsigned wordBits);
  int Copula(Eojul& e, int level);
  int DerivedStem(Eojul& e, int level);
  int Prefinal(Eojul& e, int level);
  int YeoContract(Eojul& e);
  int ContractedHa(Eojul& e, HaContraction variant);

  // ---- Scoring ----
  // Score of stored candidate `candidateIndex` of `e`; carries scoreFlow.
  double Score(int candidateIndex, Eojul& e);
  // Scores every unscored candidate of `e`; 0 when it has none, else 1.
  int ScoreAllCandidates(Eojul& e);
  // scoreFlow = 0 within a token, noted in flowUse.
  void ResetScoreFlow();

  // ---- Read access for tests and later passes ----
  const std::vector<SearchJEInfo>& JeCandidates() const { return jeCandidates; }
  const LevelRec& LevelAt(int k) const { return levels[k]; }
  uint32_t FoundMask() const { return foundMask; }
  int32_t CompoundState() const { return compoundState; }
  int32_t VerbState() const { return verbState; }
  int32_t NounStage() const { return nounStage; }
  int32_t PendingNounEnding() const { return pendingNounEnding; }
  int32_t AuxTailCount() const { return auxTailCount; }
  const EojulPool& Pool() const { return eojulPool; }

  // Cuts `text` (at most the line limit) into tokens and runs FlushToken on
  // each.
  void ScanText(const char* text, int length);
  // Analysis and output of one token of `length` bytes (no NUL among them)
  // closed by the scanner.
  void FlushToken(const char* token, uint32_t length, unsigned type,
                  int tokenStart);
  // The memo of the scan's analyses (for tests and figures), and its
  // switch: on unless turned off here; off, every token is analysed.
  const TokenMemo& Memo() const { return tokenMemo; }
  void UseTokenMemo(bool on) { tokenMemoOn = on; }

 private:
  // ---- Predicate analysis (AnalyzeWhole and the sound-change handlers):
  // the common steps besides Emit, EmitEo, UseFused and AuxSplit ----
  // SearchMain of `key`: the entry's POS bits, 0 on a miss; `marks` (when
  // given) gets the entry's marks.
  uint32_t Lookup(const StringEx& key, uint32_t* marks = nullptr) const;
  // Emit, but an empty top ending is replaced by `lead` as one EM eomi when
  // `lead` is set (EmitEo with "어").
  int EmitLed(Eojul& e, uint32_t mask, const char* lead);
  // Predicate emission: VV then VA as the looked-up `bits` allow (they need
  // the predicate bit), each through EmitLed.
  int EmitPredicate(Eojul& e, uint32_t bits, const char* lead);
  // LeadEo: an eomi top ending (all of EM) that begins with neither 아 nor 어
  // gets `lead` in front; true when it did, and UndoLeadEo(true) takes it
  // off again.
  bool LeadEo(const char* lead);
  void UndoLeadEo(bool noted);
  // Swap the top stem's last syllable `syl` for its link `link`, Lookup, and
  // unless the swapped stem is in `exceptions` (may be null) predicate
  // emission with `lead`; then restore. kNoSyllable when the link is none.
  int SwapAndEmit(Eojul& e, const SyllableRec& syl, int link,
                  const char* exceptions, const char* lead);
  // AuxSplit; with `eoOnLevelZero` the endings are those of the levels down
  // to 1, then level 0's ending or "어" when that is empty.
  int AuxSplitWith(bool eoOnLevelZero);
  // AnalyzeWhole's vote on compoundState after a prefinal or derived stem;
  // `before` is the status before that handler ran.
  void VoteCompound(int before);
  // AnalyzeWhole step 2: the whole stem as a dictionary word of a noun or
  // particle class; `hit` is its wordHits record. Returns the status.
  int WholeWord(Eojul& e, const SearchInfo& hit);
  // Tests set up the state a handler's caller leaves through this.
  friend struct PredicateProbe;

  void Initialise();
  // Driver, scoring and narrowing of one eojul (the first steps of
  // RunWithEojul).
  void AnalyzeAndSelect(Eojul& e);
  // Option 20, after scoring: when every candidate of a Hangul eojul is
  // made of nouns (with noun prefixes and suffixes) and at most one josa
  // at its end, with an unknown piece (NNR) among the nouns, each is read
  // again by ReadUnknownAgain; repeated readings are left out.
  void GiveUpUnknownEnding(Eojul& e);
  // A piece of a reading: where it starts in the surface, its bytes, its
  // mask.
  struct UnknownPiece {
    int32_t start;
    int32_t length;
    uint32_t mask;
  };
  static constexpr int kUnknownPieces = 16;
  static constexpr int kUnknownCandidates = 8;
  // Candidate `candidate` of `e` from its first unknown piece on: the
  // longest josa (a run of josa keys, the first one allowed after the
  // syllable before it) at the end is given up, the stem keeping two
  // syllables (behind known pieces the unknown piece may be all josa);
  // the stem is then divided by
  // DivideUnknownStem. Writes the pieces of the whole candidate into
  // `out`; returns their number, 0 when the candidate isn't of the shape.
  int ReadUnknownAgain(Eojul& e, int candidate, UnknownPiece* out) const;
  // The stem (length bytes of Hangul) as a known noun, else as a known
  // noun of two syllables or more and a noun suffix of one, else as two
  // known nouns (the longest head first, of two syllables or more), else
  // whole as NNR. Starts are relative to the stem. Returns the number of
  // pieces.
  int DivideUnknownStem(const char* stem, int32_t length,
                        UnknownPiece pieces[2]) const;
  // Narrows the view of `e` to the candidates up to the first with a user
  // noun.
  void KeepToUserNoun(Eojul& e);
  // Runs one of the rebuilding post passes on `e` with the analyzer's
  // options, `splitEojul` as scratch, and `extraTop` as its added count.
  void RunPass(void (*pass)(Eojul&, PassContext&), Eojul& e);
  void WidenAndCut(Eojul& e);
  // The scanner over `line`, then tagging when the output mode asks for it.
  void RunLine();
  std::ostream& Output();

  // Empties the pool tables of the last token.
  void ResetEojulPool();
  // Reads the pre-analysis entry of the surface into `e`; false when the
  // surface has none.
  bool ReadPreAnalysis(Eojul& e, int32_t length);
  // One candidate: the surface with `pos`.
  static void AddSurfaceCandidate(Eojul& e, uint32_t pos);
  // The surface from analysisLength: what a glued ending carries behind it.
  const char* RestOf(Eojul& e) const;
  // ending = text + RestOf(e). A NUL at the cut ends the surface there or
  // before (analysisLength never passes its uncut end): no rest, and nothing
  // to measure.
  void SetEnding(LevelRec& level, const char* text, Eojul& e) {
    level.ending = text;
    if (analysisLength < 0 || e.GetString()[analysisLength] != 0) {
      AppendRest(level, e);
    }
  }
  // Appends RestOf(e) to level.ending.
  void AppendRest(LevelRec& level, Eojul& e);
  // The first eomi reading of a key in the order 0, 9, 5, 19, 17.
  jeInfo FirstEomiReading(const SearchJEInfo& sjei) const;
  // Adds the endings of levels `from` down to 0 (the empty ones skipped).
  void AddEndings(Eojul& target, int from);
  // A candidate of the top stem with `mask` and the endings; kCandidate.
  int Emit(Eojul& e, uint32_t mask);
  // As Emit, but an empty top ending stands as one "어" eomi.
  int EmitEo(Eojul& e, uint32_t mask);
  // The top ending becomes the fused reading; UndoFused puts it back.
  void UseFused(Eojul& e);
  void UndoFused();
  // Auxiliary predicates that end the top stem: each left part goes to the
  // auxTails table. kNoSyllable when the search could not run, else 0.
  int AuxSplit();
  // The end of a predicate handler: a candidate marks the predicate class
  // in foundMask. Returns status.
  int Finish(int status);

  // ---- Stem constructions (Copula, YeoContract, DerivedStem, ContractedHa,
  // Prefinal) ----
  // Push: levels[levelIndex+1] = (stem[0..stemLength), ending, bits) and
  // levelIndex raised; PopLevel lowers it.
  void PushLevel(const char* stem, int32_t stemLength, const char* ending,
                 uint32_t bits);
  void PopLevel() { --levelIndex; }
  // The top stem as VV and VA (EmitPredicate with `lead`), then as VX when
  // `withVx` and the bits have it. Returns the status.
  int EmitStemReadings(Eojul& e, uint32_t bits, bool withVx,
                       const char* lead);
  // The josa reading of the ending of the level below the top.
  jeInfo JosaBelow() const;
  // The pool writers: the top stem becomes the surface of a copulaTails (or
  // suffixTails when `suffix`) entry whose candidate holds the endings from
  // the top level down. Full tables drop the entry. False only when the
  // stem is empty: no noun part, no tail, nothing pending.
  bool StoreNounTail(Eojul& e, bool suffix);
  // NounStem on the pushed top (a noun before 이 VC); a failure goes to
  // copulaTails unless `guarded` and a past copula tail already stands.
  int CopulaNoun(Eojul& e, uint32_t mask, bool guarded);
  // Push(stem[0..p), suffix, XSD), NounStem with `mask`, a failure to
  // suffixTails, Pop. kCandidate or kPending.
  int SuffixNoun(Eojul& e, int32_t p, const char* suffix, uint32_t mask);
  // The three parts of DerivedStem: a plain suffix, a suffix with a fused
  // final, and a suffix whose ending sits inside the last syllable.
  int DerivedPlain(Eojul& e);
  int DerivedFused(Eojul& e);
  int DerivedInside(Eojul& e, int status);
  // Prefinal without an EP hit: a 시 whose final belongs to the ending.
  int PrefinalFusedSi(Eojul& e, const SyllableRec& syl, bool rePass);
  // Prefinal steps 2 and 3: the stem read through (part of) the EP.
  int PrefinalStemSi(Eojul& e, int32_t ep, bool rePass);
  // Prefinal steps 10 and 11: the plain readings of the raised stem.
  int PrefinalPlain(Eojul& e, bool done, bool rePass);
  // Prefinal steps 12 and 13: the sound-change handlers on the raised stem.
  int PrefinalHandlers(Eojul& e, const SyllableRec& syl,
                       const SyllableRec& first, bool past);
  // The auxTails entry of a 겠 after a stem ending in 야.
  void StoreYaGetTail(int32_t stemLength, int32_t ep);

  // ---- Noun analysis (AnalyzeNoun, CommitPending, AnalyzeRemainder) ----
  // The stems before a josa that only a noun analysis explains; a count,
  // -3 when the divider scored the first stem below 0.
  int CommitStemEnds(Eojul& e);
  // Noun parts before the copula; r is the result before this step.
  int CommitCopulaTails(Eojul& e, int r);
  // Noun parts before a predicative suffix; the last AnalyzeNoun result.
  int CommitSuffixTails(Eojul& e);
  // Opens a candidate with `text` as one unregistered noun (NNR).
  static void OpenUnknown(Eojul& e, const char* text);
  // What mode puts behind a finished group of AnalyzeNoun (level >= 0).
  void AddGroupTail(Eojul& e, int mode, int level);
  // Score of group `group` of the last division; lastGroup for the group
  // the caller finishes.
  double GroupScore(Eojul& e, int mode, int group, double sentinel,
                    bool lastGroup);
  // The driver's last step: the unknown word from the noun analysis, else
  // the surface as NNR. Returns analysisResult.
  int UnknownWord(Eojul& e);
  // The divider's pattern for text under mode. A repeat of the token's last
  // division (the driver divides an unknown word twice) reads the divider's
  // state as that division left it.
  const char* DivideNoun(const char* text, int mode);
  // A run refills sentence in place: a kept token is analysed straight into
  // element sentenceCount, which NextInSentence appends when needed and
  // gives the settings of the current eojul; the result reads as the copy
  // of an eojul analysed in the current one would. Elements past
  // sentenceCount are storage for later runs, unseen by the readers, so
  // that a warm analyzer allocates nothing per token. The tagger replaces
  // the vector, so SetAsideUnused moves them to spareEojuls first.
  Eojul& NextInSentence(const Eojul& current);
  // AnalyzeEojul and ScoreAllCandidates of a scanned token in `e`, or what
  // they made of the same token before, from tokenMemo. `settings` is the
  // eojul whose switches the analysis reads.
  void AnalyzeScanned(Eojul& e, const char* token, uint32_t length,
                      unsigned type, const Eojul& settings);
  void SetAsideUnused();
  // Tests fill the pending tables through this.
  friend struct NounAnalysisProbe;

  QR_Knowledge* knowledge = nullptr;
  QR_Eojul* eojul = nullptr;
  Eojul workEojul;
  Eojul splitEojul;
  TextStream streams;
  // Noun analysis: the division of words no dictionary entry covers.
  NounDivider compoundAnalyzer;
  bool divisionKept = false;  // the divider holds a division of this token
  Tagger tagger;
  Eojul remainderEojul;
  std::vector<Eojul> sentence;
  size_t sentenceCount = 0;  // elements of sentence that this run filled
  // Eojuls set aside before tagging, kept for their storage.
  std::vector<Eojul> spareEojuls;
  StringEx line;
  std::string scanBuffer;  // the scanner's token under construction
  LevelRec levels[kLevelCount];
  int32_t levelIndex = 0;
  // Scratch strings: workText holds a handler's saved ending and the text
  // of the unknown-word fallback; pieceText a piece of it.
  StringEx workText;
  StringEx pieceText;
  // GiveUpUnknownEnding's surface and readings.
  StringEx unknownText;
  UnknownPiece unknownPieces[kUnknownCandidates][kUnknownPieces];
  int unknownCounts[kUnknownCandidates] = {};
  double unknownScores[kUnknownCandidates] = {};
  EojulPool eojulPool;
  TokenMemo tokenMemo;
  bool tokenMemoOn = true;

  // Hit lists of the suffix lists.
  PositionList avPositions;
  PositionList xsdPositions;
  PositionList epPositions;
  // Search vectors: dictionary words from byte 0 of the eojul, and the
  // split points of the josa and eomi search.
  std::vector<SearchInfo> wordHits;
  StringEx wordHitsText;  // the text wordHits were searched in
  std::vector<SearchJEInfo> jeCandidates;
  // Readings of the ending under test: as written, and fused into the
  // stem's last syllable (text null when there is none).
  jeInfo curJe;
  jeInfo curJongJe;
  // Endings (and their bits) that a handler keeps while it replaces the
  // ending of its level (UseFused, BIrregular): one slot per level, so that
  // a handler on a higher level keeps its own.
  StringEx heldEndings[kLevelCount];
  uint32_t heldBits[kLevelCount] = {};

  // Status fields of one token.
  int32_t analysisResult = 0;
  uint32_t foundMask = 0;
  int32_t contextCode = 0;
  int32_t nounStage = 0;
  int32_t nounCut = 0;
  int32_t nounBest = -1;
  int32_t pendingNounEnding = 0;
  int32_t pendingNounSuffix = 0;
  int32_t pendingNounOther = 0;
  int32_t auxTailCount = 0;
  int32_t compoundState = 0;
  int32_t verbState = 0;
  int32_t analysisLength = 0;
  unsigned char wholeNounDone = 0;
  int32_t scoreFlow = 0;
  // What the token under analysis did with scoreFlow (for tokenMemo).
  TokenMemo::FlowUse flowUse;

  unsigned char exOption = 0;
  bool rawOutput = false;
  bool compoundTried = false;
  bool restarted = false;
  // Candidates the post passes added beyond option 0; may go negative.
  signed char extraTop = 0;
  signed char options[kExtendedOptionCount] = {};
  int32_t ownership = 0;
  // The Dictionary loaded by the path constructor. It is deleted with the
  // analyzer even after SetEojul or SetKnowledge, and never a host's object.
  QR_Knowledge* ownedKnowledge = nullptr;

  // ---- Mixed tokens (AnalyzeMixed and its parts) ----
  // A token of digits and Latin letters alone: one candidate of runs.
  void AnalyzePlainMixed(Eojul& e);
  // The class of the character at `pos` of userText (a run class mask, 0
  // Hangul), where the next one starts and the number flags it brings. A
  // user noun there is emitted into `target` first.
  struct MixedChar {
    uint32_t runClass;
    int32_t next;
    uint32_t flags;
  };
  MixedChar ClassifyMixed(Eojul& target, int32_t pos, uint32_t runClass,
                          bool numberRules);
  // Adds the run userText[start, end) of class runClass; prev and next are
  // the classes around it (kNoClass at the token's edges).
  void FlushMixedRun(Eojul& e, int32_t start, int32_t end, uint32_t runClass,
                     uint32_t flags, uint32_t prev, uint32_t next);
  // Adds a run of one class: directly while `e` has under 2 candidates,
  // else as a one-morpheme part of type `partType` joined after each.
  void AddTypedRun(Eojul& e, const char* text, uint32_t mask,
                   unsigned partType);
  // AddTypedRun for the morphemes of a Hangul run (part type 4).
  void AddPart(Eojul& e, const char* text, uint32_t mask);
  // Joins the candidates of `part` into `e`: after each of e's candidates
  // when e has 2 or more, before each of part's when part has, else
  // appended to the open candidate.
  void JoinPart(Eojul& e, Eojul& part);
  // Rebuilds `e` from a copy of itself joined with `part`.
  void RejoinWith(Eojul& e, Eojul& part, bool after);
  // Runs userPattern over text[from, to) into `e`; returns `result`.
  int RunUserPattern(Eojul& e, const char* text, int32_t from, int32_t to,
                     int result);
  // The tail of both Hangul-run routes: the copula and the run (from
  // `resume` when state says so) as a word of its own.
  int PartTail(Eojul& e, StringEx& part, unsigned start, int result,
               int state, int32_t resume);
  // A whole run read by the noun analysis in `mode`, NNR when it fails.
  void AddNounPart(Eojul& e, StringEx& part, int mode);

  std::vector<SearchInfo> userNounHits;
  std::vector<SearchInfo> partHits;
  StringEx userText;
  StringEx userPattern;
  StringEx runText;
  // Scratch eojuls: a user noun's alternatives, a run analysed on its own,
  // and the copy of the token that joins rebuild it from.
  Eojul mixedNoun;
  Eojul mixedPart;
  Eojul mixedCopy;
};

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_M_ANALYZER_H_
