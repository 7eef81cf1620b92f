#include "frame/platform/foreign_exceptions.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

struct Count {
    int calls = 0, undone = 0;

    static void Call(void* self) { ++static_cast<Count*>(self)->calls; }
    static void Throw(void*) { throw 42; }
    static void Undo(void* self) { ++static_cast<Count*>(self)->undone; }
};

TEST(ForeignExceptionFrames, MakeTheCall) {
    Count count;
    EXPECT_TRUE(CallCatchingForeignExceptions(&Count::Call, &count));
    EXPECT_EQ(count.calls, 1);
    CallUndoingWhenLeft(&Count::Call, &count, &Count::Undo);
    EXPECT_EQ(count.calls, 2);
    EXPECT_EQ(count.undone, 0);
}

TEST(ForeignExceptionFrames, LetExceptionsOfThisCompilerPassAndUndoNothing) {
    Count count;
    EXPECT_THROW((void)CallCatchingForeignExceptions(&Count::Throw, &count), int);
    EXPECT_THROW(CallUndoingWhenLeft(&Count::Throw, &count, &Count::Undo), int);
    EXPECT_EQ(count.undone, 0);
}

} // namespace
} // namespace brixen::pvn
