// Storage, filling and reading of Eojul.
//
// Only text and morphemes trigger Grow in the original layout; candidates,
// scores and offsets are kept in bounds here by doubling on the same terms
// when they fill, which changes no stored layout and no reader's answer.
#include "eojul/eojul.h"

#include <cstring>

#include "eojul/tag_set.h"
#include "text/strings.h"

namespace Quorel {

namespace {

uint32_t MorphemeSlots(uint32_t capacity) { return capacity / 8; }
uint32_t CandidateSlots(uint32_t capacity) { return capacity / 12; }

template <class T>
void CopyPrefix(T* to, const T* from, uint32_t count) {
  if (count > 0) std::memcpy(to, from, count * sizeof(T));
}

}  // namespace

Eojul::Eojul(InlineStorage)
    : indexMask(0),
      text(inlineText),
      morphemes(inlineMorphemes),
      candidates(inlineCandidates),
      scores(inlineScores),
      capacity(kInlineCapacity),
      candidateSlots(CandidateSlots(kInlineCapacity)),
      startOffsets(inlineStartOffsets),
      endOffsets(inlineEndOffsets) {}

Eojul::Eojul(unsigned size) : Eojul(InlineStorage{}) {
  std::memset(inlineText, 0, sizeof(inlineText));
  std::memset(inlineMorphemes, 0, sizeof(inlineMorphemes));
  std::memset(inlineCandidates, 0, sizeof(inlineCandidates));
  std::memset(inlineScores, 0, sizeof(inlineScores));
  std::memset(inlineStartOffsets, 0, sizeof(inlineStartOffsets));
  std::memset(inlineEndOffsets, 0, sizeof(inlineEndOffsets));
  if (size > kInlineCapacity) AllocateArrays(size, false);
  order.reserve(20);
  Initialize(false);
}

// A copy fills only what the source used (the readers never look past
// that), and reserves no view: the sentence vector makes many of them.
Eojul::Eojul(const Eojul& other) : Eojul(InlineStorage{}) { BecomeCopyOf(other); }

Eojul::Eojul(Eojul&& other) noexcept : Eojul(InlineStorage{}) {
  spare = other.spare;
  other.spare = Blocks();
  if (other.heapCapacity == 0) {
    BecomeCopyOf(other);
  } else {
    Initialize(false);
    UseBlocks(other.InUse(), other.capacity);
    AdoptCounts(other);
    CopyAttributes(other);
    other.UseInline();
  }
  other.Initialize(false);
}

void Eojul::BecomeCopyOf(const Eojul& other) {
  if (this == &other) return;
  Initialize(true);
  if (other.capacity > kInlineCapacity) AllocateArrays(other.capacity, false);
  Initialize(false);
  CopyFrom(other);
  CopyAttributes(other);
  keepCase = false;
  numberPunctuation = false;
}

void Eojul::ShowAsCopy() {
  TerminateUsed();
  sorted = false;
  order.clear();
  keepCase = false;
  numberPunctuation = false;
}

void Eojul::CopyAttributes(const Eojul& other) {
  indexMask = other.indexMask;
  minForeignLength = other.minForeignLength;
  minNumberLength = other.minNumberLength;
}

Eojul::~Eojul() {
  ReleaseArrays();
  DeleteBlocks(spare);
}

Eojul::Blocks Eojul::NewBlocks(uint32_t size) {
  Blocks b;
  b.size = size;
  b.text = new char[size]();
  b.morphemes = new uint32_t[MorphemeSlots(size)]();
  b.candidates = new uint32_t[CandidateSlots(size)]();
  b.scores = new double[CandidateSlots(size)]();
  b.starts = new int16_t[MorphemeSlots(size)]();
  b.ends = new int16_t[MorphemeSlots(size)]();
  return b;
}

void Eojul::DeleteBlocks(Blocks& b) {
  if (b.size == 0) return;
  delete[] b.text;
  delete[] b.morphemes;
  delete[] b.candidates;
  delete[] b.scores;
  delete[] b.starts;
  delete[] b.ends;
  b = Blocks();
}

Eojul::Blocks Eojul::InUse() const {
  Blocks b;
  if (heapCapacity == 0) return b;
  b.size = heapCapacity;
  b.text = text;
  b.morphemes = morphemes;
  b.candidates = candidates;
  b.scores = scores;
  b.starts = startOffsets;
  b.ends = endOffsets;
  return b;
}

void Eojul::ReleaseArrays() {
  Blocks used = InUse();
  if (used.size == 0) return;
  if (used.size > spare.size) {
    DeleteBlocks(spare);
    spare = used;
  } else {
    DeleteBlocks(used);
  }
  UseInline();
}

// Replaces the six arrays by zeroed ones for `newCapacity` (the spare blocks
// when they are large enough), keeping the old contents when copyOld.
void Eojul::AllocateArrays(uint32_t newCapacity, bool copyOld) {
  Blocks fresh;
  if (spare.size >= newCapacity) {
    fresh = spare;
    spare = Blocks();
    std::memset(fresh.text, 0, newCapacity);
    std::memset(fresh.morphemes, 0, MorphemeSlots(newCapacity) * sizeof(uint32_t));
    std::memset(fresh.candidates, 0, CandidateSlots(newCapacity) * sizeof(uint32_t));
    std::memset(fresh.scores, 0, CandidateSlots(newCapacity) * sizeof(double));
    std::memset(fresh.starts, 0, MorphemeSlots(newCapacity) * sizeof(int16_t));
    std::memset(fresh.ends, 0, MorphemeSlots(newCapacity) * sizeof(int16_t));
  } else {
    fresh = NewBlocks(newCapacity);
  }
  if (copyOld) {
    CopyPrefix(fresh.text, text, capacity);
    CopyPrefix(fresh.morphemes, morphemes, MorphemeSlots(capacity));
    CopyPrefix(fresh.candidates, candidates, CandidateSlots(capacity));
    CopyPrefix(fresh.scores, scores, CandidateSlots(capacity));
    CopyPrefix(fresh.starts, startOffsets, MorphemeSlots(capacity));
    CopyPrefix(fresh.ends, endOffsets, MorphemeSlots(capacity));
  }
  ReleaseArrays();
  UseBlocks(fresh, newCapacity);
}

void Eojul::UseBlocks(const Blocks& b, uint32_t newCapacity) {
  heapCapacity = b.size;
  capacity = newCapacity;
  candidateSlots = CandidateSlots(newCapacity);
  text = b.text;
  morphemes = b.morphemes;
  candidates = b.candidates;
  scores = b.scores;
  startOffsets = b.starts;
  endOffsets = b.ends;
}

void Eojul::UseInline() {
  Blocks inlineAreas;
  inlineAreas.text = inlineText;
  inlineAreas.morphemes = inlineMorphemes;
  inlineAreas.candidates = inlineCandidates;
  inlineAreas.scores = inlineScores;
  inlineAreas.starts = inlineStartOffsets;
  inlineAreas.ends = inlineEndOffsets;
  UseBlocks(inlineAreas, kInlineCapacity);
}

void Eojul::Grow() { AllocateArrays(capacity * 2, true); }

void Eojul::EnsureTextRoom(uint32_t length) {
  while (textUsed + length + 1 >= capacity) Grow();
}

void Eojul::EnsureMorphemeRoom() {
  while (morphemeUsed + 2 >= MorphemeSlots(capacity)) Grow();
}

// The open candidate writes its count and first entry at candidatePos and
// candidatePos + 1 and its score at scorePos.
void Eojul::EnsureCandidateRoom() {
  while (candidatePos + 1 >= CandidateSlots(capacity) ||
         scorePos >= CandidateSlots(capacity)) {
    Grow();
  }
}

void Eojul::CopyFrom(const Eojul& other) {
  if (this == &other) return;
  if (capacity < other.capacity) AllocateArrays(other.capacity, false);
  CopyPrefix(text, other.text, other.textUsed);
  if (other.textUsed == 0) text[0] = 0;
  CopyPrefix(morphemes, other.morphemes, other.morphemeUsed);
  CopyPrefix(candidates, other.candidates, other.candidatePos);
  CopyPrefix(scores, other.scores, other.scorePos);
  CopyPrefix(startOffsets, other.startOffsets, other.offsetCount);
  CopyPrefix(endOffsets, other.endOffsets, other.offsetCount);
  AdoptCounts(other);
}

void Eojul::AdoptCounts(const Eojul& other) {
  textUsed = other.textUsed;
  morphemeUsed = other.morphemeUsed;
  candidatePos = other.candidatePos;
  scorePos = other.scorePos;
  offsetCount = other.offsetCount;
  offset = other.offset;
  TerminateUsed();
}

void Eojul::TerminateUsed() {
  // Zero-terminate at the used ends; an empty eojul still reads as empty.
  if (textUsed == 0) text[0] = 0;
  if (morphemeUsed < 2) morphemes[0] = morphemes[1] = 0;
  morphemes[morphemeUsed] = 0;
  candidates[candidatePos] = 0;
  candidates[candidatePos + 1] = 0;
  scores[scorePos] = 0.0;
}

void Eojul::SetText(const char* surface, unsigned type) {
  if (surface == nullptr) surface = "";
  SetText(surface, static_cast<uint32_t>(std::strlen(surface)), type);
}

void Eojul::SetText(const char* surface, uint32_t length, unsigned type) {
  // The surface may live in our own storage, which Initialize can free.
  if (surface >= text && surface < text + capacity) {
    std::vector<char> saved(surface, surface + length);
    saved.push_back(0);
    SetText(saved.data(), length, type);
    return;
  }
  Initialize(true);
  // Both areas are empty now: the text area may need to grow for the
  // surface, the morpheme area (32 entries at least) holds its two.
  if (length + 1 >= capacity) EnsureTextRoom(length);
  spr::stdstyle::MoveBytes(text, surface, length);
  text[length] = 0;
  text[length + 1] = 0;
  morphemes[0] = type;
  morphemes[1] = 0;
  morphemeUsed = 2;
  textUsed = length + 2;
}

void Eojul::AddMorpheme(const char* lexicon, unsigned pos) {
  if (lexicon == nullptr) lexicon = "";
  AddMorpheme(lexicon, static_cast<uint32_t>(std::strlen(lexicon)), pos);
}

void Eojul::AddMorphemeGrowing(const char* lexicon, uint32_t length,
                               unsigned pos) {
  if (lexicon == nullptr) {
    lexicon = "";
    length = 0;
  }
  if (morphemeUsed < 2) morphemeUsed = 2;
  // A lexicon taken from our own pool must survive a Grow.
  bool own = lexicon >= text && lexicon < text + capacity;
  uint32_t ownOffset = own ? static_cast<uint32_t>(lexicon - text) : 0;
  EnsureTextRoom(length);
  if (own) lexicon = text + ownOffset;
  uint32_t at = textUsed;
  spr::stdstyle::MoveBytes(text + at, lexicon, length);
  text[at + length] = 0;
  EnsureMorphemeRoom();
  morphemes[morphemeUsed] = pos;
  morphemes[morphemeUsed + 1] = at;
  morphemeUsed += 2;
  textUsed += length + 1;
  candidates[candidatePos] += 1;
}

void Eojul::AddSurfaceMorpheme(unsigned pos) {
  if (morphemeUsed < 2) morphemeUsed = 2;
  EnsureMorphemeRoom();
  morphemes[morphemeUsed] = pos;
  morphemes[morphemeUsed + 1] = 0;
  morphemeUsed += 2;
  candidates[candidatePos] += 1;
}

void Eojul::SetScoreAt(unsigned candidate, double score) {
  if (candidate + 1 < scorePos + 1 && candidate + 1 < CandidateSlots(capacity)) {
    scores[candidate + 1] = score;
  }
}

void Eojul::AddCandidateFrom(const Eojul& source, uint32_t k) {
  uint32_t first = source.FirstMorphemeAt(k);
  uint32_t count = source.MorphemeCountAt(k);
  for (uint32_t m = 0; m < count; ++m) {
    AddMorpheme(source.LexiconOf(first + m), source.PosOf(first + m));
  }
}

void Eojul::AddSurfaceOf(const Eojul& source, unsigned pos) {
  AddMorpheme(source.text, pos);
}

void Eojul::AppendMorphemes(const Eojul& other) {
  uint32_t count = other.StoredCount();
  for (uint32_t k = 0; k < count; ++k) {
    AddCandidateFrom(other, k);
    double score = other.ScoreAt(k);
    if (score > 0.0) scores[scorePos] += score;
  }
  if (sorted) {
    order.push_back(candidates[0]);
    order[0] = static_cast<uint32_t>(order.size() - 1);
  }
}

void Eojul::JoinAfter(const Eojul& left, const Eojul& right) {
  uint32_t count = left.StoredCount();
  for (uint32_t k = 0; k < count; ++k) {
    BeginCandidate();
    AddCandidateFrom(left, k);
    if (right.StoredCount() >= 1) {
      AddCandidateFrom(right, 0);
    } else {
      AddSurfaceOf(right, Pos::NNR);
    }
    SetCandidateScore(left.ScoreAt(k) + right.scores[1]);
    EndCandidate();
  }
}

void Eojul::JoinBefore(const Eojul& left, const Eojul& right) {
  uint32_t count = right.StoredCount();
  for (uint32_t k = 0; k < count; ++k) {
    BeginCandidate();
    if (left.StoredCount() >= 1) {
      AddCandidateFrom(left, 0);
    } else {
      AddSurfaceOf(left, Pos::NNR);
    }
    AddCandidateFrom(right, k);
    SetCandidateScore(left.scores[1] + right.ScoreAt(k));
    EndCandidate();
  }
}

int Eojul::BestCandidate() {
  uint32_t count = StoredCount();
  uint32_t best = 1;
  for (uint32_t k = 2; k <= count; ++k) {
    if (ScoreAt(k - 1) >= ScoreAt(best - 1)) best = k;
  }
  sorted = false;
  return static_cast<int>(best) - 1;
}

int Eojul::SelectTop(unsigned char n) {
  uint32_t count = StoredCount();
  if (n == 0) {
    sorted = false;
    return static_cast<int>(count);
  }
  sorted = true;
  uint32_t keep = n < count ? n : count;
  order.clear();
  order.push_back(keep);
  if (keep == 1) {
    order.push_back(static_cast<uint32_t>(BestCandidate()) + 1);
    sorted = true;
    return 1;
  }
  for (uint32_t k = 1; k <= count; ++k) order.push_back(k);
  // Partial selection sort; ">=" lets later candidates displace equals.
  for (uint32_t i = 1; i <= keep; ++i) {
    double best = ScoreAt(order[i] - 1);
    for (uint32_t j = i + 1; j <= count; ++j) {
      double score = ScoreAt(order[j] - 1);
      if (score >= best) {
        std::swap(order[i], order[j]);
        best = score;
      }
    }
  }
  return static_cast<int>(keep);
}

int Eojul::StoredCandidate(int candidate) const {
  if (candidate < 0) return -1;
  if (!MapCandidate(candidate)) return -1;
  return static_cast<uint32_t>(candidate) < StoredCount() ? candidate : -1;
}

const char* Eojul::GetStrPOS(int candidate, int morpheme) {
  uint32_t number;
  if (!Locate(candidate, morpheme, number)) return "";
  return PosNameOf(PosOf(number));
}

double Eojul::GetScore(int candidate) {
  if (candidate < 0 || !MapCandidate(candidate)) return 0.0;
  return ScoreAt(static_cast<uint32_t>(candidate));
}

int Eojul::GetStartOffset(int candidate, int morpheme) {
  uint32_t number;
  if (!Locate(candidate, morpheme, number) || number >= offsetCount) return -1;
  return startOffsets[number];
}

int Eojul::GetEndOffset(int candidate, int morpheme) {
  uint32_t number;
  if (!Locate(candidate, morpheme, number) || number >= offsetCount) return -1;
  return endOffsets[number];
}

bool Eojul::IsIndexWord(int candidate, int morpheme) {
  uint32_t pos = GetPOS(candidate, morpheme);
  if ((pos & indexMask) != pos) return false;
  const char* lexicon = GetLexicon(candidate, morpheme);
  size_t length = lexicon == nullptr ? 0 : std::strlen(lexicon);
  if (minForeignLength != 0 && (pos & Pos::FL) != 0) {
    return length >= minForeignLength;
  }
  if (minNumberLength != 0 && (pos & Pos::SN) != 0) {
    return length >= minNumberLength;
  }
  return true;
}

void Eojul::AddMorphemeOffsets(short start, unsigned short end) {
  while (offsetCount >= MorphemeSlots(capacity)) Grow();
  startOffsets[offsetCount] = start;
  endOffsets[offsetCount] = static_cast<int16_t>(end);
  offsetCount += 1;
}

const char* Eojul::GetMorphemeAt(int m) const {
  if (m == 0) return text;
  if (m < 1 || static_cast<uint32_t>(m) > morphemeUsed / 2) return nullptr;
  uint32_t at = 2 * static_cast<uint32_t>(m) + 1;
  if (at >= morphemeUsed) return nullptr;
  uint32_t textOffset = morphemes[at];
  return textOffset < textUsed ? text + textOffset : nullptr;
}

void Eojul::Print(std::ostream& stream, bool compact) {
  int visible = GetListSize();
  if (compact) {
    stream << text << "\t" << "Offset : " << offset << "\n";
    for (int c = 0; c < visible; ++c) {
      int count = GetCount(c);
      for (int m = 0; m < count; ++m) {
        if (m > 0) stream << "+";
        stream << GetLexicon(c, m) << "/" << GetStrPOS(c, m);
      }
      stream << (c + 1 < visible ? "@" : "\n");
    }
    return;
  }
  stream << "[" << text << "]" << "\n";
  stream << "Offset : " << offset << "\n";
  for (int c = 0; c < visible; ++c) {
    int count = GetCount(c);
    for (int m = 0; m < count; ++m) {
      if (m == 0) {
        stream << "\t" << c << ": ";
      } else {
        stream << " + ";
      }
      stream << GetLexicon(c, m) << "/" << GetStrPOS(c, m);
    }
    stream << "\t" << GetScore(c) << "\n";
  }
}

QR_Eojul* CreateEojul() { return new Eojul(256); }

}  // namespace Quorel
