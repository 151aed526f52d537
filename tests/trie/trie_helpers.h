// Shared checks of the trie tests: the free-list invariants, exact lookups
// by Walk, and comparison of two tries' arrays.
#ifndef QRLSL_TESTS_TRIE_TRIE_HELPERS_H_
#define QRLSL_TESTS_TRIE_TRIE_HELPERS_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "trie/qr_datrie.h"

namespace Quorel {
namespace testing_trie {

// The free list is ascending, holds exactly the cells at or below bcPos
// whose check is not positive, ends with a link to bcPos + 1, and
// bcEmptyStart/bcEmptyEnd agree with it; cells above bcPos are untouched.
::testing::AssertionResult FreeListIsSound(const QR_DaTrie& trie);

// Walks every byte of key from the root. True with the value when the whole
// key walks and ends on a key; false otherwise.
bool Lookup(const QR_DaTrie& trie, const std::string& key, int32_t* value);

// Number of leading bytes of key that Walk accepts.
size_t WalkablePrefix(const QR_DaTrie& trie, const std::string& key);

// Inserts key and gives it `value` when it is new; returns the stored value.
int32_t InsertValue(QR_DaTrie& trie, const std::string& key, int32_t value);

// Cells 0..bcPos, tail 0..tailPos-1 and the list ends are equal.
::testing::AssertionResult SameArrays(const QR_DaTrie& a, const QR_DaTrie& b);

}  // namespace testing_trie
}  // namespace Quorel

#endif  // QRLSL_TESTS_TRIE_TRIE_HELPERS_H_
