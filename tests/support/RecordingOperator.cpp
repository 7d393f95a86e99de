#include "support/RecordingOperator.h"

#include <gtest/gtest.h>

#include <ostream>

namespace vorlent {

RecordingOperator::~RecordingOperator() {
  for (const Box& box : boxes_) ADD_FAILURE() << "Unexpected message box: " << box;
}

std::ostream& operator<<(std::ostream& out, const RecordingOperator::Box& box) {
  return out << "\"" << box.title << "\": " << box.text;
}

}  // namespace vorlent
