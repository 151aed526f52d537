#include "lexical/lexical_helpers.h"

#include <sstream>

#include "lexical/synonym.h"

namespace lexical_test {

std::string Render(Quorel::QR_SynonymContainer& container,
                   const std::string& word) {
  Quorel::Synonym result;
  const int found = container.Search(word.c_str(), &result);
  std::ostringstream out;
  out << found << ":" << result.GetCount();
  for (int i = 0; i < result.GetCount(); ++i) {
    out << "|" << result.GetGroupHead(i) << "/" << result.GetGroupSize(i);
    for (int p = 0; p < result.GetGroupSize(i); ++p) {
      out << " " << result.GetWord(i, p) << result.HasLessMark(i, p)
          << result.HasGreaterMark(i, p);
    }
  }
  return out.str();
}

}  // namespace lexical_test
