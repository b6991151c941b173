#pragma once

#include <gmock/gmock.h>

namespace tarvok::test {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

}  // namespace tarvok::test
