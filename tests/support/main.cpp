#include "support/golden.h"

#include <gtest/gtest.h>
#include <string_view>

int main(int argumentCount, char** arguments) {
    testing::InitGoogleTest(&argumentCount, arguments);
    for (int i = 1; i < argumentCount; ++i)
        if (std::string_view(arguments[i]) == "--rebaseline")
            corvane::testing::rebaseline = true;
    return RUN_ALL_TESTS();
}
