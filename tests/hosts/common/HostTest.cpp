#include "common/Host.h"

#include <doctest/doctest.h>

TEST_CASE("a name that is not ASCII reaches the library whole in the locale C")
{
    CHECK(NameOf(u8"/\u56fe/\u00e9 1.png") == L"/\u56fe/\u00e9 1.png");
    CHECK(NameOf("/plain.png") == L"/plain.png");
    CHECK(NameOf("").IsEmpty());
}
