/* NVR_CHOOSETRANSPOSINGINSTRUMENTS: a 32-bit process on Windows. Passes on whatever the caller gives: arguments and
 * return address on the stack stay as they are. EAX is nobody's across a call; where it ends up 0 that is the result. */

    .text
    .globl _NVR_CHOOSETRANSPOSINGINSTRUMENTS
    .def _NVR_CHOOSETRANSPOSINGINSTRUMENTS; .scl 2; .type 32; .endef
_NVR_CHOOSETRANSPOSINGINSTRUMENTS:
    movl _NvrHostFunctionTable+5*4, %eax
    testl %eax, %eax
    jz 1f
    jmp *%eax
1:  ret
