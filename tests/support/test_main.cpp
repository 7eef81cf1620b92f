// The main program of every test program.
#include <gtest/gtest.h>

#include <gmock/gmock.h>

int main(int argumentCount, char** arguments) {
    testing::InitGoogleMock(&argumentCount, arguments);
    return RUN_ALL_TESTS();
}
