// The compiled knowledge file qrl.klg: a header and nine sections, each a
// trie image followed by counted arrays. Numbers are little-endian in the
// file; with littleEndian 0 every 16- and 32-bit field is swapped on the way
// in and out (text and tail bytes never are).
#include <cstring>
#include <string>
#include <vector>

#include "knowledge/dictionary.h"
#include "knowledge/image_checks.h"
#include "knowledge/knowledge_io.h"

namespace Quorel {

namespace {

const char kBanner[] =
    "Quorel compiled knowledge image, format revision 2001-2008.";
const char kProduct[] = "Quorel";
static_assert(sizeof kBanner == 60, "the banner field is 60 bytes");
static_assert(sizeof kProduct == 7, "the product field is 7 bytes");

const char kMainRecordError[] = "during main Trie writing, file error occurred.";
const char kJeReadError[] = "during main Trie reading, file error occurred.";

// Reports an image that can't be used safely; always false.
bool Corrupt(const char* section, const char* fault) {
  const std::string what = std::string(section) + ": " + fault + "..";
  Report("Knowledge file is corrupted in the ", what.c_str());
  return false;
}

// An index of a record or a text: -1 (none) or below `size`.
bool NoneOrBelow(int64_t index, int64_t size) {
  return index == -1 || (index >= 0 && index < size);
}

uint32_t Swap32(uint32_t v) {
  return (v >> 24) | ((v >> 8) & 0xFF00) | ((v << 8) & 0xFF0000) | (v << 24);
}

uint16_t Swap16(uint16_t v) {
  return static_cast<uint16_t>((v >> 8) | (v << 8));
}

void Swap32Array(void* data, size_t n) {
  auto* p = static_cast<uint32_t*>(data);
  for (size_t i = 0; i < n; ++i) p[i] = Swap32(p[i]);
}

void Swap16Array(void* data, size_t n) {
  auto* p = static_cast<uint16_t*>(data);
  for (size_t i = 0; i < n; ++i) p[i] = Swap16(p[i]);
}

class ImageWriter {
 public:
  ImageWriter(std::FILE* file, bool swap) : out(file), swapped(swap) {}

  bool Bytes(const void* data, size_t n) {
    return n == 0 || std::fwrite(data, 1, n, out) == n;
  }
  bool Int32(int32_t v) {
    uint32_t u = static_cast<uint32_t>(v);
    if (swapped) u = Swap32(u);
    return Bytes(&u, 4);
  }
  // n 32-bit (or 16-bit) values, through a copy when they must be swapped.
  bool Int32Array(const void* data, size_t n) {
    if (!swapped) return Bytes(data, 4 * n);
    std::vector<uint32_t> copy(static_cast<const uint32_t*>(data),
                               static_cast<const uint32_t*>(data) + n);
    Swap32Array(copy.data(), n);
    return Bytes(copy.data(), 4 * n);
  }
  bool Int16Array(const void* data, size_t n) {
    if (!swapped) return Bytes(data, 2 * n);
    std::vector<uint16_t> copy(static_cast<const uint16_t*>(data),
                               static_cast<const uint16_t*>(data) + n);
    Swap16Array(copy.data(), n);
    return Bytes(copy.data(), 2 * n);
  }

  bool Trie(const QR_DaTrie& trie) {
    const int32_t cells = trie.bcPos + 1;
    const int32_t tailBytes = trie.tailPos + 1;
    if (!Int32(cells) || !Int32(tailBytes) || !Int32(trie.bcEmptyStart) ||
        !Int32(trie.bcEmptyEnd)) {
      return false;
    }
    if (cells > 1) {
      // Written from a copy, so that swapping never touches the live cells.
      std::vector<TrieCell> copy(trie.bc, trie.bc + cells);
      if (!Int32Array(copy.data(), 2 * static_cast<size_t>(cells))) {
        return false;
      }
    }
    return tailBytes <= 1 || Bytes(trie.tail, static_cast<size_t>(tailBytes));
  }

 private:
  std::FILE* out;
  bool swapped;
};

class ImageReader {
 public:
  ImageReader(std::FILE* file, bool swap, int64_t size)
      : in(file), swapped(swap), remaining(size) {}

  bool Bytes(void* data, size_t n) {
    if (static_cast<int64_t>(n) > remaining) return false;
    if (n > 0 && std::fread(data, 1, n, in) != n) return false;
    remaining -= static_cast<int64_t>(n);
    return true;
  }
  bool Int32(int32_t& v) {
    uint32_t u = 0;
    if (!Bytes(&u, 4)) return false;
    v = static_cast<int32_t>(swapped ? Swap32(u) : u);
    return true;
  }
  bool Int32Array(void* data, size_t n) {
    if (!Bytes(data, 4 * n)) return false;
    if (swapped) Swap32Array(data, n);
    return true;
  }
  bool Int16Array(void* data, size_t n) {
    if (!Bytes(data, 2 * n)) return false;
    if (swapped) Swap16Array(data, n);
    return true;
  }
  // Whether n elements of `size` bytes each fit in the rest of the file; a
  // negative or larger count is refused before anything is allocated.
  bool Fits(int32_t n, int64_t size) const {
    return n >= 0 && n * size <= remaining;
  }
  bool Count(int32_t& n, int64_t size) { return Int32(n) && Fits(n, size); }

  // A trie image into `trie`. A count larger than the rest of the file is a
  // file cut short and fails quietly; an image that would let a walk or an
  // insert leave the arrays is reported under `name` and the trie cleared.
  bool Trie(QR_DaTrie& trie, const char* name) {
    int32_t cells = 0;
    int32_t tailBytes = 0;
    int32_t emptyStart = 0;
    int32_t emptyEnd = 0;
    if (!Int32(cells) || !Int32(tailBytes) || !Int32(emptyStart) ||
        !Int32(emptyEnd)) {
      return false;
    }
    if (cells < 1 || tailBytes < 1) {
      return Corrupt(name, "its sizes are impossible");
    }
    const int64_t cellBytes = cells > 1 ? 8LL * cells : 0;
    const int64_t tailPart = tailBytes > 1 ? tailBytes : 0;
    if (cellBytes + tailPart > remaining) return false;
    trie.Create(cells, tailBytes, Dictionary::kTrieSize,
                Dictionary::kTrieSize);
    if (cells > 1 && !Int32Array(trie.bc, 2 * static_cast<size_t>(cells))) {
      return false;
    }
    if (tailBytes > 1 && !Bytes(trie.tail, static_cast<size_t>(tailBytes))) {
      return false;
    }
    trie.bcPos = cells - 1;
    trie.tailPos = tailBytes - 1;
    trie.bcEmptyStart = emptyStart;
    trie.bcEmptyEnd = emptyEnd;
    const char* fault = TrieImageFault(trie);
    if (fault == nullptr) return true;
    trie.Clear();
    return Corrupt(name, fault);
  }

 private:
  std::FILE* in;
  bool swapped;
  int64_t remaining;
};

bool WriteMainRecord(ImageWriter& w, const MainTrieInfo& r) {
  return w.Int32(static_cast<int32_t>(r.bits)) && w.Int32(r.nnbInfo) &&
         w.Int32(r.nnpInfo) && w.Int32(r.nnuInfo) && w.Int32(r.nuInfo) &&
         w.Int32(static_cast<int32_t>(r.marks));
}

bool ReadMainRecord(ImageReader& r, MainTrieInfo& m) {
  int32_t bits = 0;
  int32_t marks = 0;
  bool ok = r.Int32(bits) && r.Int32(m.nnbInfo) && r.Int32(m.nnpInfo) &&
            r.Int32(m.nnuInfo) && r.Int32(m.nuInfo) && r.Int32(marks);
  m.bits = static_cast<uint32_t>(bits);
  m.marks = static_cast<uint32_t>(marks);
  return ok;
}

bool WriteJeRecord(ImageWriter& w, const JosaEomiTrieInfo& r) {
  return w.Int32(static_cast<int32_t>(r.bits)) && w.Int32(r.josaInfo) &&
         w.Int32(r.eomiInfo9) && w.Int32(r.eomiInfo5) &&
         w.Int32(r.eomiInfo19) && w.Int32(r.eomiInfo17) &&
         w.Int32(r.eomiInfo0);
}

bool ReadJeRecord(ImageReader& r, JosaEomiTrieInfo& j) {
  int32_t bits = 0;
  bool ok = r.Int32(bits) && r.Int32(j.josaInfo) && r.Int32(j.eomiInfo9) &&
            r.Int32(j.eomiInfo5) && r.Int32(j.eomiInfo19) &&
            r.Int32(j.eomiInfo17) && r.Int32(j.eomiInfo0);
  j.bits = static_cast<uint32_t>(bits);
  return ok;
}

// A record array behind its count; a record that can't be written is
// reported.
template <class Record>
bool WriteRecords(ImageWriter& w, const std::vector<Record>& records,
                  bool (*write)(ImageWriter&, const Record&)) {
  if (!w.Int32(static_cast<int32_t>(records.size()))) return false;
  for (const Record& record : records) {
    if (!write(w, record)) {
      Report(kMainRecordError);
      return false;
    }
  }
  return true;
}

// A counted record array into an emptied vector. The message is reported
// when a record can't be read (an impossible count counts as such).
template <class Record>
bool ReadRecords(ImageReader& r, std::vector<Record>& records,
                 int64_t recordSize, bool (*read)(ImageReader&, Record&),
                 const char* message) {
  records.clear();
  int32_t count = 0;
  if (!r.Int32(count)) return false;
  if (!r.Fits(count, recordSize)) {
    Report(message);
    return false;
  }
  records.reserve(static_cast<size_t>(count));
  for (int32_t i = 0; i < count; ++i) {
    Record record;
    if (!read(r, record)) {
      Report(message);
      return false;
    }
    records.push_back(record);
  }
  return true;
}

// A text pool re-created for `size` bytes and filled from the file.
bool ReadPool(ImageReader& r, TextPool& pool) {
  int32_t size = 0;
  if (!r.Count(size, 1) || size == INT32_MAX) return false;
  if (!pool.Reset(size + 1)) return false;
  pool.used = size;
  return r.Bytes(pool.buffer, static_cast<size_t>(size));
}

bool WriteList(ImageWriter& w, const QR_DaTrie& trie, int32_t size) {
  return w.Trie(trie) && w.Int32(size);
}

bool ReadList(ImageReader& r, QR_DaTrie& trie, const char* name) {
  int32_t dropped = 0;  // the key count; the list needs only its trie
  return r.Trie(trie, name) && r.Int32(dropped);
}

// Every record's texts lie in the main pool.
bool MainRecordsSound(const Dictionary& d) {
  const int64_t used = d.mainPool.used;
  for (const MainTrieInfo& m : d.mainInfos) {
    if (!NoneOrBelow(m.nnbInfo, used) || !NoneOrBelow(m.nnpInfo, used) ||
        !NoneOrBelow(m.nnuInfo, used) || !NoneOrBelow(m.nuInfo, used)) {
      return false;
    }
  }
  return true;
}

// Every record's readings are entries of the pool, and every entry's form
// lies in the pool's text.
bool JeRecordsSound(const Dictionary& d) {
  const int64_t n = d.jePool.count;
  for (const JosaEomiTrieInfo& j : d.jeInfos) {
    for (int32_t index : {j.josaInfo, j.eomiInfo0, j.eomiInfo5, j.eomiInfo9,
                          j.eomiInfo17, j.eomiInfo19}) {
      if (!NoneOrBelow(index, n)) return false;
    }
  }
  for (int32_t k = 0; k < d.jePool.count; ++k) {
    if (d.jePool.offset[k] >= static_cast<uint32_t>(d.jePool.text.used)) {
      return false;
    }
  }
  return true;
}

// The values of a trie's keys index an array of `size` entries; when they
// don't, the trie is cleared so that no lookup meets them.
bool ValuesSound(QR_DaTrie& trie, int64_t size, const char* section) {
  const char* fault = TrieValueFault(trie, 0, size);
  if (fault == nullptr) return true;
  trie.Clear();
  return Corrupt(section, fault);
}

const char kMainSection[] = "main dictionary";
const char kJeSection[] = "josa/eomi dictionary";
const char kDivSection[] = "divide information";
const char kPosSection[] = "position information";
const char kPreSection[] = "pre-analysis";

// The header and the sections in file order; 0 at the first failure, with
// what was read so far left in place (a trie or records that failed their
// checks are emptied).
int ReadSections(ImageReader& r, Dictionary& d, bool withPreAnalysis) {
  char banner[sizeof kBanner];
  char product[sizeof kProduct + 1] = {0};
  if (!r.Bytes(banner, sizeof banner)) return 0;
  if (!r.Bytes(product, sizeof kProduct)) return 0;
  if (std::strcmp(product, kProduct) != 0) {
    Report("Knowledge file is not suitable for Quorel.");
    return 0;
  }

  int32_t count = 0;
  if (!r.Trie(d.mainTrie, kMainSection) ||
      !ReadRecords(r, d.mainInfos, 24, ReadMainRecord, kMainRecordError) ||
      !ReadPool(r, d.mainPool)) {
    return 0;
  }
  if (!MainRecordsSound(d)) {
    d.mainInfos.clear();
    d.mainTrie.Clear();
    Corrupt(kMainSection, "a word's text lies outside the pool");
    return 0;
  }
  if (!ValuesSound(d.mainTrie, static_cast<int64_t>(d.mainInfos.size()),
                   kMainSection) ||
      !r.Trie(d.jeTrie, kJeSection) ||
      !ReadRecords(r, d.jeInfos, 28, ReadJeRecord, kJeReadError)) {
    return 0;
  }
  if (!ReadPool(r, d.jePool.text)) return 0;
  if (!r.Count(count, 4 + 4 + 2 + 1) || !d.jePool.Reset(count + 1)) return 0;
  const auto n = static_cast<size_t>(count);
  if (!r.Int32Array(d.jePool.offset, n) || !r.Int32Array(d.jePool.bits, n) ||
      !r.Int16Array(d.jePool.attach, n) || !r.Bytes(d.jePool.type, n)) {
    return 0;
  }
  d.jePool.count = count;
  if (!JeRecordsSound(d)) {
    d.jeInfos.clear();
    d.jeTrie.Clear();
    d.jePool.Reset(0);
    Corrupt(kJeSection, "a reading lies outside its pool");
    return 0;
  }
  if (!ValuesSound(d.jeTrie, static_cast<int64_t>(d.jeInfos.size()),
                   kJeSection)) {
    return 0;
  }
  // The pool now holds the file's copies of the jamo endings too; only these
  // new ones are referenced.
  d.jamoEomiInfos.clear();
  d.AddJamoEndings();

  if (!r.Trie(d.divTrie, kDivSection) || !r.Count(count, 4)) return 0;
  delete[] d.divInfo;
  d.divInfo = new int32_t[count]();
  d.sizeDivInfo = 0;
  if (!r.Int32Array(d.divInfo, static_cast<size_t>(count))) return 0;
  d.sizeDivInfo = count;
  if (!ValuesSound(d.divTrie, count, kDivSection)) return 0;

  if (!r.Trie(d.posTrie, kPosSection) || !r.Count(count, 12)) return 0;
  delete[] d.posInfo;
  d.posInfo = new PosInfoRec[count]();
  d.sizePosInfo = 0;
  if (!r.Int32Array(d.posInfo, 3 * static_cast<size_t>(count))) return 0;
  d.sizePosInfo = count;
  if (!ValuesSound(d.posTrie, count, kPosSection)) return 0;

  if (!ReadList(r, d.xpTrie, "XP list") || !ReadList(r, d.xsnTrie, "XSN list") ||
      !ReadList(r, d.xsnxsnTrie, "XSNXSN list") ||
      !ReadList(r, d.conjTrie, "CONJ list")) {
    return 0;
  }
  if (!withPreAnalysis) return 1;
  if (!r.Trie(d.preAnalTrie, kPreSection) || !r.Count(count, 1)) return 0;
  d.preAnalBuffer.assign(static_cast<size_t>(count), 0);
  if (!r.Bytes(d.preAnalBuffer.data(), static_cast<size_t>(count))) return 0;
  return ValuesSound(d.preAnalTrie, count, kPreSection) ? 1 : 0;
}

}  // namespace

int Dictionary::SaveCompiled(const char* directory) {
  const std::string path = JoinPath(directory, "qrl.klg");
  std::FILE* out = std::fopen(path.c_str(), "wb");
  if (out == nullptr) {
    Report("Fail to create Knowledge.\nCan't open ", path.c_str(), " file.");
    return 0;
  }
  ImageWriter w(out, littleEndian == 0);
  bool ok = w.Bytes(kBanner, sizeof kBanner) &&
            w.Bytes(kProduct, sizeof kProduct) && w.Trie(mainTrie) &&
            WriteRecords(w, mainInfos, WriteMainRecord) &&
            w.Int32(mainPool.used) &&
            w.Bytes(mainPool.buffer, static_cast<size_t>(mainPool.used)) &&
            w.Trie(jeTrie) && WriteRecords(w, jeInfos, WriteJeRecord);
  const auto n = static_cast<size_t>(jePool.count);
  ok = ok && w.Int32(jePool.text.used) &&
       w.Bytes(jePool.text.buffer, static_cast<size_t>(jePool.text.used)) &&
       w.Int32(jePool.count) && w.Int32Array(jePool.offset, n) &&
       w.Int32Array(jePool.bits, n) && w.Int16Array(jePool.attach, n) &&
       w.Bytes(jePool.type, n);
  ok = ok && w.Trie(divTrie) && w.Int32(sizeDivInfo) &&
       w.Int32Array(divInfo, static_cast<size_t>(sizeDivInfo));
  ok = ok && w.Trie(posTrie) && w.Int32(sizePosInfo) &&
       w.Int32Array(posInfo, 3 * static_cast<size_t>(sizePosInfo));
  ok = ok && WriteList(w, xpTrie, sizeXPList) &&
       WriteList(w, xsnTrie, sizeXSNList) &&
       WriteList(w, xsnxsnTrie, sizeXSNXSNList) &&
       WriteList(w, conjTrie, sizeCONJList);
  ok = ok && w.Trie(preAnalTrie) &&
       w.Int32(static_cast<int32_t>(preAnalBuffer.size())) &&
       w.Bytes(preAnalBuffer.data(), preAnalBuffer.size());
  if (std::fclose(out) != 0) ok = false;
  return ok ? 1 : 0;
}

int Dictionary::LoadCompiled(const char* file, bool withPreAnalysis) {
  std::FILE* in = std::fopen(file, "rb");
  if (in == nullptr) return -1;
  int64_t size = 0;
  if (std::fseek(in, 0, SEEK_END) == 0) size = std::ftell(in);
  std::rewind(in);
  ImageReader r(in, littleEndian == 0, size < 0 ? 0 : size);
  const int result = ReadSections(r, *this, withPreAnalysis);
  std::fclose(in);
  return result;
}

}  // namespace Quorel
