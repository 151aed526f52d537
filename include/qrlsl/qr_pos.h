// QR_POS: conversion between part-of-speech names and 32-bit POS masks.
// Stateless; share freely.
#ifndef QRLSL_QR_POS_H_
#define QRLSL_QR_POS_H_

namespace Quorel {

class QR_POS {
 public:
  QR_POS() {}
  virtual ~QR_POS() {}

  // Mask of a tag name such as "NNG"; 0 when the name is unknown.
  virtual unsigned int GetPOSCode(const char* name) = 0;
  // Name of an exact mask; "" when no tag has that mask.
  virtual const char* GetPOSName(unsigned int mask) = 0;
};

QR_POS* CreatePOS();

}  // namespace Quorel

#endif  // QRLSL_QR_POS_H_
