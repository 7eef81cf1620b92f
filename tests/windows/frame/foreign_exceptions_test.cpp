#include "frame/platform/foreign_exceptions.h"

#include "windows/frame/host_catch.h"

#include <gtest/gtest.h>

namespace brixen::pvn {
namespace {

using host_catch::CodeCaughtFrom;
using host_catch::Raise;

constexpr DWORD kForeignException = 0xE06D7363, kOtherCode = 0xE0001234;

void RaiseCodeAt(void* code) { Raise(*static_cast<DWORD*>(code)); }

TEST(ForeignExceptions, AnExceptionOfAnotherCompilerEndsTheCall) {
    DWORD code = kForeignException;
    for (int i = 0; i < 300; ++i) ASSERT_FALSE(CallCatchingForeignExceptions(&RaiseCodeAt, &code));
}

TEST(ForeignExceptions, AnyOtherCodePassesTheCatchingFrame) {
    DWORD code = kOtherCode;
    bool hasReturned = false;
    EXPECT_EQ(CodeCaughtFrom([&] {
                  (void)CallCatchingForeignExceptions(&RaiseCodeAt, &code);
                  hasReturned = true;
              }),
              kOtherCode);
    EXPECT_FALSE(hasReturned);
}

TEST(ForeignExceptions, TheInnermostCatchingFrameCatches) {
    struct Inner {
        static void Call(void* caught) {
            DWORD code = kForeignException;
            *static_cast<bool*>(caught) = !CallCatchingForeignExceptions(&RaiseCodeAt, &code);
        }
    };
    bool wasCaughtInside = false;
    EXPECT_TRUE(CallCatchingForeignExceptions(&Inner::Call, &wasCaughtInside));
    EXPECT_TRUE(wasCaughtInside);
}

struct UndoneCall {
    DWORD code = 0;
    int undone = 0;

    static void Call(void* self) { Raise(static_cast<UndoneCall*>(self)->code); }
    static void Undo(void* self) { ++static_cast<UndoneCall*>(self)->undone; }
};

TEST(ForeignExceptions, ACallIsUndoneOnceBeforeTheHostCatchesItsException) {
    for (const DWORD code : {kForeignException, kOtherCode, DWORD(EXCEPTION_ACCESS_VIOLATION)}) {
        UndoneCall call{code};
        EXPECT_EQ(CodeCaughtFrom([&] { CallUndoingWhenLeft(&UndoneCall::Call, &call, &UndoneCall::Undo); }),
                  code);
        EXPECT_EQ(call.undone, 1) << std::hex << code;
    }
}

TEST(ForeignExceptions, AnExceptionCaughtInsideTheCallUndoesNothing) {
    struct Inner {
        static void Call(void*) {
            EXPECT_EQ(CodeCaughtFrom([] { Raise(kOtherCode); }), kOtherCode);
        }
    };
    UndoneCall counter;
    CallUndoingWhenLeft(&Inner::Call, &counter, &UndoneCall::Undo);
    EXPECT_EQ(counter.undone, 0);
}

} // namespace
} // namespace brixen::pvn
