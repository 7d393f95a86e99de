#pragma once

#include <string>

/// The words between the server and vorlent-share. A question is a word, a path as `\\host\share\x`
/// and what the word needs; it has one answer.
namespace vorlent::shareMessages {

/// The first message, without an answer: user, password, domain, and the port, 0 for the usual.
inline const std::string Account = "account";

inline const std::string Exists = "exists";
inline const std::string Read = "read";    ///< and the most bytes that a file may have
inline const std::string Write = "write";  ///< and the content
inline const std::string Remove = "remove";

inline const std::string Done = "done";
inline const std::string Content = "content";  ///< and the content
inline const std::string None = "none";        ///< no such file, or not to be had
inline const std::string TooLarge = "too large";
/// The host was not found or not reached, and to find that out took a while.
inline const std::string Unreachable = "unreachable";

}  // namespace vorlent::shareMessages
