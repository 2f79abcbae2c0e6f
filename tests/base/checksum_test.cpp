#include "base/checksum.h"

#include <gtest/gtest.h>

#include "support/temp_folder.h"

namespace zelvo {
namespace {

TEST(Checksums, AreThoseOfTheUsualTools) {
  const std::pair<std::string, std::string_view> sums[] = {
      {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
      {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
      {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
       "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
      {std::string(1'000'000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"}};
  TempFolder folder;
  for (const auto& [bytes, sum] : sums) {
    EXPECT_EQ(checksumOf(bytes), sum) << bytes.size();
    Checksum inPieces;
    for (std::size_t at = 0; at < bytes.size(); at += 37)
      inPieces.add(std::string_view(bytes).substr(at, 37));
    EXPECT_EQ(inPieces.finish(), sum) << bytes.size() << " in pieces";
    folder.write("file", bytes);
    EXPECT_EQ(checksumOfFile(folder.file("file")).valueOr(""), sum) << bytes.size() << " in a file";
  }
  EXPECT_EQ(checksumOfFile(folder.file("none")).error().trouble, Trouble::NotFound);
}

}  // namespace
}  // namespace zelvo
