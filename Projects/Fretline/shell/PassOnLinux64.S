/* NVR_CHOOSETRANSPOSINGINSTRUMENTS: an x86-64 process on Linux. Passes on whatever the caller gives: arguments in
 * registers and on the stack, the count of those in vector registers (AL), and the return address stay as they are.
 * R11 is nobody's across a call. */

    .text
    .hidden NvrHostFunctionTable
    .globl NVR_CHOOSETRANSPOSINGINSTRUMENTS
    .type NVR_CHOOSETRANSPOSINGINSTRUMENTS, @function
NVR_CHOOSETRANSPOSINGINSTRUMENTS:
    .cfi_startproc
    movq NvrHostFunctionTable+5*8(%rip), %r11
    testq %r11, %r11
    jz 1f
    jmp *%r11
1:  xorl %eax, %eax
    ret
    .cfi_endproc
    .size NVR_CHOOSETRANSPOSINGINSTRUMENTS, .-NVR_CHOOSETRANSPOSINGINSTRUMENTS

    .section .note.GNU-stack, "", @progbits
