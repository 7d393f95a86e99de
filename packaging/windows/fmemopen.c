#include "fmemopen.h"

#include <windows.h>

/* A file that Windows keeps in memory as long as there is room, and that goes with the stream. */
static FILE *openTemporary(void) {
  wchar_t folder[MAX_PATH + 1];
  wchar_t name[MAX_PATH + 1];
  if (GetTempPathW(MAX_PATH + 1, folder) == 0) return NULL;
  if (GetTempFileNameW(folder, L"mdb", 0, name) == 0) return NULL;
  return _wfopen(name, L"w+bTD");
}

FILE *fmemopen(void *bytes, size_t count, const char *mode) {
  FILE *stream = openTemporary();
  (void)mode;
  if (stream == NULL) return NULL;
  if (fwrite(bytes, 1, count, stream) == count && fseek(stream, 0, SEEK_SET) == 0) return stream;
  fclose(stream);
  return NULL;
}
