#include "platform/linux/LocaleRegional.h"

#include <langinfo.h>
#include <locale.h>

namespace vorlent {

std::string LocaleRegional::decimalSeparator() {
  const locale_t users = newlocale(LC_NUMERIC_MASK, "", nullptr);
  if (!users) return ".";
  std::string mark = nl_langinfo_l(RADIXCHAR, users);
  freelocale(users);
  return mark;
}

}  // namespace vorlent
