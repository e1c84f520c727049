/* NVR_CHOOSETRANSPOSINGINSTRUMENTS: an i386 process on Linux. Passes on whatever the caller gives: arguments and
 * return address on the stack stay as they are. EAX is nobody's across a call; where it ends up 0 that is the result. */

    .text
    .hidden NvrHostFunctionTable
    .globl NVR_CHOOSETRANSPOSINGINSTRUMENTS
    .type NVR_CHOOSETRANSPOSINGINSTRUMENTS, @function
NVR_CHOOSETRANSPOSINGINSTRUMENTS:
    .cfi_startproc
    call 1f
    .cfi_adjust_cfa_offset 4
1:  popl %eax
    .cfi_adjust_cfa_offset -4
    movl NvrHostFunctionTable+5*4-1b(%eax), %eax
    testl %eax, %eax
    jz 2f
    jmp *%eax
2:  ret
    .cfi_endproc
    .size NVR_CHOOSETRANSPOSINGINSTRUMENTS, .-NVR_CHOOSETRANSPOSINGINSTRUMENTS

    .section .note.GNU-stack, "", @progbits
