#include "fuzz/parcel_key_trial.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size) {
  static zelvo::fuzz::ParcelKeyTrial trial;
  trial.run({reinterpret_cast<const char*>(bytes), size});
  return 0;
}
