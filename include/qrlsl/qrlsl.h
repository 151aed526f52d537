// The whole public surface of the library for a host that links it directly:
// seven abstract classes and their factories. Objects are deleted through
// the abstract pointer by whoever created them.
#ifndef QRLSL_QRLSL_H_
#define QRLSL_QRLSL_H_

#include "qrlsl/qr_analyzer.h"
#include "qrlsl/qr_eojul.h"
#include "qrlsl/qr_knowledge.h"
#include "qrlsl/qr_pos.h"
#include "qrlsl/qr_stopword.h"
#include "qrlsl/qr_synonym.h"

#endif  // QRLSL_QRLSL_H_
