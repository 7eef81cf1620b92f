// The two frames for GCC and clang, which have no structured exception handling of their own: each is a
// function in assembly with a handler that the system calls. The compiler of foreign_exceptions_msvc.cpp
// needs neither.
#include "frame/platform/foreign_exceptions.h"

#ifndef _MSC_VER

#include <windows.h>

namespace {

constexpr DWORD kForeignException = 0xE06D7363;
// The low 24 bits of the codes by which this compiler throws and unwinds.
constexpr DWORD kOwnCodes = 0x474343, kOwnCodeMask = 0xFFFFFF;
constexpr DWORD kUnwindingPasses = EXCEPTION_UNWINDING | EXCEPTION_EXIT_UNWIND;

// The two words that PavaneUndoingFrame keeps above the 32 bytes of its callee.
struct UndoingFrame {
    void* calleesRoom[4];
    void (*undo)(void*);
    void* argument;
};

} // namespace

extern "C" {

int PavaneCatchingFrame(void (*call)(void*), void* argument);
extern char
    PavaneCatchingFrameEnd[]; // where PavaneCatchingFrame goes on after an exception, with 1 as its result
void PavaneUndoingFrame(void (*call)(void*), void* argument, void (*undo)(void*));

EXCEPTION_DISPOSITION PavaneCatchingHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT*,
                                            DISPATCHER_CONTEXT* dispatcher) {
    if ((record->ExceptionFlags & kUnwindingPasses) != 0) return ExceptionContinueSearch;
    if (record->ExceptionCode != kForeignException) return ExceptionContinueSearch;
    RtlUnwindEx(frame, PavaneCatchingFrameEnd, record, reinterpret_cast<void*>(1), dispatcher->ContextRecord,
                dispatcher->HistoryTable);
    return ExceptionContinueSearch; // RtlUnwindEx does not return
}

EXCEPTION_DISPOSITION PavaneUndoingHandler(EXCEPTION_RECORD* record, void* frame, CONTEXT*,
                                           DISPATCHER_CONTEXT*) {
    const bool isUnwinding = (record->ExceptionFlags & kUnwindingPasses) != 0;
    const bool isOwn = (record->ExceptionCode & kOwnCodeMask) == kOwnCodes;
    if (isUnwinding && !isOwn) {
        const auto& kept = *static_cast<const UndoingFrame*>(frame);
        kept.undo(kept.argument);
    }
    return ExceptionContinueSearch;
}

} // extern "C"

// The instruction after each call keeps the return address out of the epilogue, where no handler would be
// asked.
__asm__(R"(
    .text
    .p2align 4
    .globl PavaneCatchingFrame
    .seh_proc PavaneCatchingFrame
PavaneCatchingFrame:
    subq $40, %rsp
    .seh_stackalloc 40
    .seh_handler PavaneCatchingHandler, @except, @unwind
    .seh_endprologue
    movq %rcx, %rax
    movq %rdx, %rcx
    call *%rax
    xorl %eax, %eax
    .globl PavaneCatchingFrameEnd
PavaneCatchingFrameEnd:
    addq $40, %rsp
    ret
    .seh_endproc

    .p2align 4
    .globl PavaneUndoingFrame
    .seh_proc PavaneUndoingFrame
PavaneUndoingFrame:
    subq $56, %rsp
    .seh_stackalloc 56
    .seh_handler PavaneUndoingHandler, @unwind
    .seh_endprologue
    movq %r8, 32(%rsp)
    movq %rdx, 40(%rsp)
    movq %rcx, %rax
    movq %rdx, %rcx
    call *%rax
    nop
    addq $56, %rsp
    ret
    .seh_endproc
)");

namespace brixen::pvn {

bool CallCatchingForeignExceptions(CallWithArgument call, void* argument) {
    return PavaneCatchingFrame(call, argument) == 0;
}

void CallUndoingWhenLeft(CallWithArgument call, void* argument, CallWithArgument undo) {
    PavaneUndoingFrame(call, argument, undo);
}

} // namespace brixen::pvn

#endif
