#include "fuzz/letter_trial.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  static const zelvo::fuzz::ReadLetterTrial trial;
  trial.run({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
