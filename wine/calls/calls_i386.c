// SPDX-License-Identifier: MIT
// Calls of the kernel for 32-bit Wine, by the fastest gate that the kernel offers (its vDSO). glibc 2.41 makes calls
// that a thread can be cancelled in by "int 0x80" instead, which takes fifty times as long on a virtual machine, and
// Wine asks its server by some thousand such calls a second; it cancels no thread. Preloaded by scripts/x86-root.
extern int* __errno_location(void);

static int Call(int number, int a, int b, int c) {
    int result;
    __asm__ volatile("call *%%gs:0x10"
                     : "=a"(result)
                     : "0"(number), "b"(a), "c"(b), "d"(c)
                     : "memory", "cc");
    if ((unsigned)result < -4095u)
        return result;
    *__errno_location() = -result;
    return -1;
}

int read(int file, void* bytes, unsigned count) {
    return Call(3, file, (int)bytes, (int)count);
}
int write(int file, const void* bytes, unsigned count) {
    return Call(4, file, (int)bytes, (int)count);
}
int readv(int file, const void* parts, int count) {
    return Call(145, file, (int)parts, count);
}
int writev(int file, const void* parts, int count) {
    return Call(146, file, (int)parts, count);
}
int poll(void* files, unsigned count, int milliseconds) {
    return Call(168, (int)files, (int)count, milliseconds);
}
int sendmsg(int socket, const void* message, int flags) {
    return Call(370, socket, (int)message, flags);
}
int recvmsg(int socket, void* message, int flags) {
    return Call(372, socket, (int)message, flags);
}
