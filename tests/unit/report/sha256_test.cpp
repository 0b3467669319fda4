#include "report/sha256.h"

#include <gtest/gtest.h>

#include <string>

namespace paramgen::report {
namespace {

TEST(Sha256, NothingAndShortTexts) {
    EXPECT_EQ(Hexadecimal(Sha256("")),
              "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(Hexadecimal(Sha256("abc")),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Sha256, PaddingThatTakesAnotherBlock) {
    EXPECT_EQ(Hexadecimal(Sha256("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(Sha256, ManyBlocks) {
    EXPECT_EQ(Hexadecimal(Sha256(std::string(1000000, 'a'))),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, Base64) {
    EXPECT_EQ(Base64(Sha256("")), "47DEQpj8HBSa+/TImW+5JCeuQeRkm5NMpJWZG3hSuFU=");
}

}  // namespace
}  // namespace paramgen::report
