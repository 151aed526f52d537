// Logger: appends "[HH:MM:SS] text" lines to dated files in the log
// directory ("./logs/", which must exist: nothing creates it). Used for
// run-time traces, not for loading messages. Each write opens and closes
// the file, so lines of two threads interleave only as whole appends.
#ifndef QRLSL_LOG_LOGGER_H_
#define QRLSL_LOG_LOGGER_H_

namespace Quorel {

// The log directory, with its trailing separator.
extern const char* LogDirectory;

class Logger {
 public:
  Logger() {}
  virtual ~Logger() {}

  // One line in today's file, named MM_DD_YY.log. 1, or -1 when the file
  // can't be opened.
  int Write(const char* text);
  // One line in the log directory's fileName + ".log". 1, or -1.
  int Write(const char* fileName, const char* text);
};

}  // namespace Quorel

#endif  // QRLSL_LOG_LOGGER_H_
