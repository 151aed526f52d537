// Checks of what the compiled-file reader installs: a trie whose cells and
// tail came from a file, and the record indexes and pool offsets around it.
// A sound trie keeps every Walk, and every later Insert (user nouns,
// pre-analysis), inside its arrays; anything else is refused by the reader.
#ifndef QRLSL_KNOWLEDGE_IMAGE_CHECKS_H_
#define QRLSL_KNOWLEDGE_IMAGE_CHECKS_H_

#include <cstdint>

#include "trie/qr_datrie.h"

namespace Quorel {

// Null when the installed trie is sound, else what is wrong with it: bases
// and parents inside the cells, leaves whose rest ends in ";" and a value
// inside the written tail, an ascending free-cell list that holds exactly the
// free cells. A trie of one cell or none (never built) is sound.
const char* TrieImageFault(const QR_DaTrie& trie);

// Null when the value of every key lies in [low, high), else the fault.
// REQUIRES: TrieImageFault(trie) is null.
const char* TrieValueFault(const QR_DaTrie& trie, int64_t low, int64_t high);

}  // namespace Quorel

#endif  // QRLSL_KNOWLEDGE_IMAGE_CHECKS_H_
