// TokenMemo: the scored analyses of recently seen tokens, so that a frequent
// token (a josa-less noun, 있다, 수) is analysed once rather than at every
// occurrence. It belongs to one analyzer and is filled and read by its scan.
//
// A token's analysis depends on its bytes and type bits, on two values the
// token before leaves behind (the context code and the score flow), and on
// what stays fixed between calls: the knowledge, the options and the
// settings of the eojul. A hit needs the same bytes, type and context code,
// and the same score flow when the token read it (few do: most replace it
// or pass it on), and hands back the record and the carried values that
// analysing the token left. Follow empties the memo when the knowledge
// object, its generation or the eojul's switches move; for whatever else
// changes (the options) the owner calls Forget.
//
// Direct-mapped: a token has one slot, and a new token takes it over. Slots
// and records are allocated once, on the first Keep; a full memo allocates
// nothing more.
#ifndef QRLSL_ANALYZER_TOKEN_MEMO_H_
#define QRLSL_ANALYZER_TOKEN_MEMO_H_

#include <cstdint>
#include <memory>

namespace Quorel {

class Eojul;

class TokenMemo {
 public:
  static constexpr uint32_t kSlotBits = 13;
  static constexpr uint32_t kSlots = 1u << kSlotBits;
  // A record larger than this (a long token with many candidates) is not
  // kept; such tokens rarely repeat.
  static constexpr uint32_t kRecordBytes = 256;

  // What a token reads from the one before it, and leaves for the next.
  struct Carried {
    int32_t contextCode = 0;
    int32_t scoreFlow = 0;
  };

  // Whether a token read the score flow it was given before it replaced it
  // (read), and whether it replaced it (set; else it passed it on).
  struct FlowUse {
    bool read = false;
    bool set = false;
  };

  // A token's place in the memo: its slot and the hash that tells it apart.
  struct Key {
    uint32_t slot;
    uint32_t hash;
  };
  static Key KeyOf(const char* token, uint32_t length);

  // Empties the memo unless its records were made with this knowledge
  // object at this generation, and with these eojul settings (bits the
  // owner makes of the switches that analysis reads).
  void Follow(const void* knowledge, uint64_t generation, uint32_t settings);
  // Empties the memo (options or settings changed).
  void Forget();

  // Unpacks the record kept for (token, type, in) into `e`, which holds the
  // token's surface alone, sets `out` and returns true; false on a miss.
  bool Recall(const Key& key, const char* token, uint32_t length,
              unsigned type, const Carried& in, Eojul& e, Carried& out);
  // Keeps the analysis `e` of (token, type), made with `in` and using the
  // flow as `use` says, which left `out`. Nothing is kept when it does not
  // pack into a record.
  void Keep(const Key& key, uint32_t length, unsigned type, const Carried& in,
            const FlowUse& use, const Eojul& e, const Carried& out);

  // Records kept now and usable (for tests and figures).
  uint32_t Count() const;
  // Recall's calls and hits since the memo was made.
  uint64_t Lookups() const { return lookups; }
  uint64_t Recalls() const { return recalls; }

 private:
  struct Slot {
    uint32_t hash;
    uint32_t type;
    uint32_t epoch;  // the slot is empty unless it equals the memo's
    uint16_t length;
    FlowUse flow;
    Carried in;
    Carried out;
  };

  std::unique_ptr<Slot[]> slots;
  std::unique_ptr<unsigned char[]> records;  // kRecordBytes per slot
  // Starts at 1 so that the zeroed slots are empty.
  uint32_t epoch = 1;
  const void* knowledgeFollowed = nullptr;
  uint64_t generationFollowed = 0;
  uint32_t settingsFollowed = 0;
  uint64_t lookups = 0;
  uint64_t recalls = 0;
};

}  // namespace Quorel

#endif  // QRLSL_ANALYZER_TOKEN_MEMO_H_
