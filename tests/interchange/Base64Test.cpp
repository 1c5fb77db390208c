#include "interchange/Base64.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace vostel;

namespace {

std::vector<unsigned char> Bytes(const char* text)
{
    return {text, text + std::strlen(text)};
}

}

TEST_CASE("the examples of RFC 4648")
{
    const char* const pairs[][2] = {{"", ""},
                                    {"f", "Zg=="},
                                    {"fo", "Zm8="},
                                    {"foo", "Zm9v"},
                                    {"foob", "Zm9vYg=="},
                                    {"fooba", "Zm9vYmE="},
                                    {"foobar", "Zm9vYmFy"}};
    for (const auto& pair : pairs) {
        CHECK(Base64Of(Bytes(pair[0])) == pair[1]);
        CHECK(BytesOfBase64(pair[1]) == Bytes(pair[0]));
    }
}

TEST_CASE("every byte comes back at every place")
{
    std::vector<unsigned char> bytes;
    for (int i = 0; i < 300; ++i) {
        CHECK(BytesOfBase64(Base64Of(bytes)) == bytes);
        bytes.insert(bytes.begin(), static_cast<unsigned char>(i));
    }
}

TEST_CASE("what no bytes give is none")
{
    for (const char* const text :
         {"Z", "Zg", "Zg=", "Zg===", "====", "Zg==Zg==", "Z*==", "Zm9 ", "Zh==", "Zm9=", "=Zg="})
        CHECK_FALSE(BytesOfBase64(text));
}
