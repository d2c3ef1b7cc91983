#include "CATEnvironment.h"
#include "CATStatus.h"
#include "TestEnvironment.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{

TEST(CATEnvironment, ReadsTheProcessesVariables)
{
    setenv("WB_SYSTEM_TEST", "value", 1);
    EXPECT_STREQ(CATGetEnv("WB_SYSTEM_TEST"), "value");
    setenv("WB_SYSTEM_TEST", "", 1);
    EXPECT_STREQ(CATGetEnv("WB_SYSTEM_TEST"), "");
    unsetenv("WB_SYSTEM_TEST");
    EXPECT_EQ(CATGetEnv("WB_SYSTEM_TEST"), nullptr);
}

TEST(CATEnvironment, ValueIsUntouchedWhenTheVariableIsNotSet)
{
    TestEnvironment environment;
    environment.Set("A", "1");
    environment.Set("EMPTY", "");
    CATUnicodeString value = "before";
    EXPECT_EQ(CATGetEnvValue("B", value), S_FALSE);
    EXPECT_EQ(value, "before");
    EXPECT_EQ(CATGetEnvValue("A", value), S_OK);
    EXPECT_EQ(value, "1");
    EXPECT_EQ(CATGetEnvValue("EMPTY", value), S_OK);
    EXPECT_EQ(value, "");
}

TEST(CATEnvironment, EmptySourceBringsTheProcessBack)
{
    setenv("WB_SYSTEM_TEST", "process", 1);
    {
        TestEnvironment environment;
        environment.Set("WB_SYSTEM_TEST", "test");
        EXPECT_STREQ(CATGetEnv("WB_SYSTEM_TEST"), "test");
    }
    EXPECT_STREQ(CATGetEnv("WB_SYSTEM_TEST"), "process");
    unsetenv("WB_SYSTEM_TEST");
}

} // namespace
