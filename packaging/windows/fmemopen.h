/* What libmdb asks of the C library to read a database out of memory, and Windows' does not have.
 */
#include <stdio.h>

/* A stream to read the bytes from. NULL when there is none. The mode is always to read. */
FILE* fmemopen(void* bytes, size_t count, const char* mode);
