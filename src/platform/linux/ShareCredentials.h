#pragma once

#include <string>
#include <string_view>

namespace vorlent {

/// Who asks for the files of other machines; without a user nobody in particular.
struct ShareCredentials {
  std::string user;
  std::string password;
  std::string domain;
};

/// From a file of lines `key = value`, with the keys user, password and domain; blanks around a
/// value are not part of it, and lines that are empty or begin with "#" are passed over. Raises
/// PathAccess with a sentence that tells what is wrong: also for a file that others than its owner
/// may read or write. No file name, no credentials.
ShareCredentials readShareCredentials(const std::string& path);

/// The same, of the file's text; `path` is for the sentence.
ShareCredentials parseShareCredentials(std::string_view text, const std::string& path);

}  // namespace vorlent
