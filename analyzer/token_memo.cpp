// TokenMemo: hashing, recall and keeping of packed analyses.
#include "analyzer/token_memo.h"

#include <cstring>

#include "eojul/eojul.h"

namespace Quorel {

TokenMemo::Key TokenMemo::KeyOf(const char* token, uint32_t length) {
  // Eight bytes at a time: tokens are short and this runs for each one.
  uint64_t h = 0x9E3779B97F4A7C15ull ^ length;
  uint32_t at = 0;
  for (; at + 8 <= length; at += 8) {
    uint64_t chunk;
    std::memcpy(&chunk, token + at, 8);
    h = (h ^ chunk) * 0xFF51AFD7ED558CCDull;
    h ^= h >> 32;
  }
  if (at < length) {
    uint64_t chunk = 0;
    std::memcpy(&chunk, token + at, length - at);
    h = (h ^ chunk) * 0xFF51AFD7ED558CCDull;
    h ^= h >> 32;
  }
  h *= 0xC4CEB9FE1A85EC53ull;
  const uint32_t high = static_cast<uint32_t>(h >> 32);
  return Key{high >> (32 - kSlotBits), static_cast<uint32_t>(h)};
}

void TokenMemo::Forget() {
  if (++epoch != 0) return;
  // After 2^32 forgets an old slot could match again: clear them all.
  if (slots) {
    for (uint32_t k = 0; k < kSlots; ++k) slots[k].epoch = 0;
  }
  epoch = 1;
}

void TokenMemo::Follow(const void* knowledge, uint64_t generation,
                       uint32_t settings) {
  if (knowledge == knowledgeFollowed && generation == generationFollowed &&
      settings == settingsFollowed) {
    return;
  }
  Forget();
  knowledgeFollowed = knowledge;
  generationFollowed = generation;
  settingsFollowed = settings;
}

bool TokenMemo::Recall(const Key& key, const char* token, uint32_t length,
                       unsigned type, const Carried& in, Eojul& e,
                       Carried& out) {
  ++lookups;
  if (!slots) return false;
  const Slot& slot = slots[key.slot];
  if (slot.epoch != epoch || slot.hash != key.hash || slot.length != length ||
      slot.type != type || slot.in.contextCode != in.contextCode ||
      (slot.flow.read && slot.in.scoreFlow != in.scoreFlow)) {
    return false;
  }
  const unsigned char* record = records.get() + key.slot * kRecordBytes;
  if (std::memcmp(Eojul::PackedSurface(record), token, length) != 0) {
    return false;
  }
  e.Unpack(record);
  ++recalls;
  out.contextCode = slot.out.contextCode;
  out.scoreFlow = slot.flow.set ? slot.out.scoreFlow : in.scoreFlow;
  return true;
}

void TokenMemo::Keep(const Key& key, uint32_t length, unsigned type,
                     const Carried& in, const FlowUse& use, const Eojul& e,
                     const Carried& out) {
  const uint32_t size = e.PackedSize();
  // The token's bytes are in the record: no token is longer than it.
  if (size == 0 || size > kRecordBytes) return;
  if (!slots) {
    slots.reset(new Slot[kSlots]());
    records.reset(new unsigned char[kSlots * kRecordBytes]);
  }
  Slot& slot = slots[key.slot];
  slot.hash = key.hash;
  slot.type = type;
  slot.epoch = epoch;
  slot.length = static_cast<uint16_t>(length);
  slot.flow = use;
  slot.in = in;
  slot.out = out;
  e.Pack(records.get() + key.slot * kRecordBytes);
}

uint32_t TokenMemo::Count() const {
  if (!slots) return 0;
  uint32_t count = 0;
  for (uint32_t k = 0; k < kSlots; ++k) count += slots[k].epoch == epoch;
  return count;
}

}  // namespace Quorel
