#include "toolkit/kept_exception.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace brixen::zeve {
namespace {

template <class Exception>
void Keep(const Exception& exception) {
    try {
        throw exception;
    } catch (...) {
        KeepException();
    }
}

std::string TextOfKept() {
    try {
        ThrowKeptException();
    } catch (const std::exception& exception) {
        return exception.what();
    }
    return "";
}

TEST(KeptException, ThrowsNothingWhenNoneIsKept) {
    EXPECT_FALSE(IsExceptionKept());
    EXPECT_NO_THROW(ThrowKeptException());
}

TEST(KeptException, IsThrownOnceWithItsType) {
    Keep(std::out_of_range("far"));
    EXPECT_TRUE(IsExceptionKept());
    EXPECT_THROW(ThrowKeptException(), std::out_of_range);
    EXPECT_FALSE(IsExceptionKept());
    EXPECT_NO_THROW(ThrowKeptException());
}

TEST(KeptException, OfSeveralTheFirstIsKept) {
    Keep(std::runtime_error("first"));
    Keep(std::runtime_error("second"));
    EXPECT_EQ(TextOfKept(), "first");
}

TEST(KeptException, AnythingThrownCanBeKept) {
    Keep(42);
    EXPECT_THROW(ThrowKeptException(), int);
}

TEST(KeptException, CanBeForgotten) {
    Keep(1);
    ForgetKeptException();
    EXPECT_FALSE(IsExceptionKept());
}

} // namespace
} // namespace brixen::zeve
