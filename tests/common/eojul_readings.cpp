#include "common/eojul_readings.h"

#include <sstream>

namespace Quorel {
namespace testsupport {

std::string EojulReadings(Eojul& e) {
  std::ostringstream out;
  out << e.GetString() << " type " << e.GetType() << " @" << e.GetOffset()
      << " size " << e.GetListSize() << " best " << e.BestCandidate() << "\n";
  for (int c = 0; c <= e.GetListSize(); ++c) {
    out << c << ": " << e.GetScore(c) << " count " << e.GetCount(c);
    for (int m = 0; m <= e.GetCount(c); ++m) {
      const char* lexicon = e.GetLexicon(c, m);
      out << " [" << (lexicon != nullptr ? lexicon : "(null)") << "/"
          << e.GetPOS(c, m) << (e.IsIndexWord(c, m) ? " index " : " ")
          << e.GetStartOffset(c, m) << "-" << e.GetEndOffset(c, m) << "]";
    }
    out << "\n";
  }
  e.Print(out, true);
  e.Print(out, false);
  return out.str();
}

}  // namespace testsupport
}  // namespace Quorel
