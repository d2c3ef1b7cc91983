#include "ServerTesting.h"

#include <sys/stat.h>

#include <thread>

using namespace wb;
using testing::ElementsAre;

TEST(ProductFile, APipeIsReadToItsEnd)
{
    const wbtest::Directory directory;
    const std::string pipe = directory.File("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::thread writer([&pipe] { std::ofstream(pipe) << "part,name\nP,Bolt\n"; });
    const auto result = ReadProductFile(pipe, {}, KnownProducts());
    writer.join();
    EXPECT_THAT(result.errors, ElementsAre());
    ASSERT_EQ(result.product.parts.size(), 1U);
    EXPECT_EQ(result.product.parts[0].name, "Bolt");
}

TEST(ProductFile, ADeviceWithoutBytesIsAnEmptyFile)
{
    EXPECT_THAT(ReadProductFile("/dev/null", {}, KnownProducts()).errors,
                ElementsAre("/dev/null: the file is empty, expected a header and rows"));
}

TEST(ProductFile, BlankHeaderIsToldByItsPosition)
{
    EXPECT_EQ(wbtest::FirstError("part,name,\nP,Bolt,\n"),
              "t.csv:1: the header of column 3 is blank, expected the name of a column, or no "
              "separator there");
}

TEST(ProductFile, SemicolonInAQuotedHeaderOrACellIsNoSeparator)
{
    const auto result = wbtest::Read("\"part\",\"p:a\"\nP,x;y\n");
    EXPECT_THAT(result.errors, ElementsAre());
    EXPECT_EQ(result.product.parts.at(0).properties.at(0).value, "x;y");
}
