// Analysis routes that are not built yet. Each answers "nothing found" in
// the form its caller expects, so that the cascade runs whole and every
// token still ends with its fall-back candidate. Replace each definition
// here by the real route in its own file.
#include "analyzer/m_analyzer.h"
#include "eojul/tag_set.h"

namespace Quorel {

}  // namespace Quorel
