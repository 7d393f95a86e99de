#include "platform/helper/DescriptorRoom.h"

namespace vorlent {

/// Windows sets a process no limit that it could start under.
std::string whyTooFewDescriptors() { return {}; }

}  // namespace vorlent
