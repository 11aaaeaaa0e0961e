#include "faults/TVictim.h"

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (const int code = alinhavo::TVictim::Main(argc, argv); code >= 0)
        return code;
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
