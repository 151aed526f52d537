#include "log/logger.h"

#include <cstdio>
#include <ctime>
#include <string>

namespace Quorel {

const char* LogDirectory = "./logs/";

namespace {

// Appends "[" + time + "] " + text and a line end to `path`.
int AppendLine(const std::string& path, const char* bufTime, const char* text) {
  std::FILE* file = std::fopen(path.c_str(), "a");
  if (file == nullptr) return -1;
  std::fprintf(file, "[%s] %s\n", bufTime, text == nullptr ? "" : text);
  std::fclose(file);
  return 1;
}

// Local time of day "HH:MM:SS" and date "MM/DD/YY".
void Now(char (&bufTime)[128], char (&bufDate)[128]) {
  tzset();
  std::time_t now = std::time(nullptr);
  std::tm local;
  localtime_r(&now, &local);
  std::strftime(bufTime, sizeof(bufTime), "%H:%M:%S", &local);
  std::strftime(bufDate, sizeof(bufDate), "%m/%d/%y", &local);
}

}  // namespace

int Logger::Write(const char* text) {
  char bufTime[128];
  char bufDate[128];
  Now(bufTime, bufDate);
  std::string strDate = bufDate;
  for (char& c : strDate) {
    if (c == '/') c = '_';
  }
  return AppendLine(std::string(LogDirectory) + strDate + ".log", bufTime, text);
}

int Logger::Write(const char* fileName, const char* text) {
  char bufTime[128];
  char bufDate[128];
  Now(bufTime, bufDate);
  return AppendLine(std::string(LogDirectory) + (fileName ? fileName : "") + ".log",
                    bufTime, text);
}

}  // namespace Quorel
