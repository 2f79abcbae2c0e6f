#include "fuzz/dialect_trial.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  static zelvo::fuzz::DialectTrial trial;
  trial.run({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
