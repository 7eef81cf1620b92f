#include "windows/frame/host_catch.h"

__asm__(R"(
    .text
    .p2align 4
    .globl HostCatchingFrame
    .seh_proc HostCatchingFrame
HostCatchingFrame:
    subq $40, %rsp
    .seh_stackalloc 40
    .seh_handler HostCatchingHandler, @except, @unwind
    .seh_endprologue
    movq %rcx, %rax
    movq %rdx, %rcx
    call *%rax
    xorl %eax, %eax
    .globl HostCatchingFrameEnd
HostCatchingFrameEnd:
    addq $40, %rsp
    ret
    .seh_endproc
)");
