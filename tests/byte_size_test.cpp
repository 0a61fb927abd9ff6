#include "platform/byte_size.h"

#include <gtest/gtest.h>

namespace {

TEST(ByteSize, TruncatesToThreeDigits) {
    const struct {
        std::int32_t bytes;
        const char* text;
    } cases[] = {{0, "0 bytes"},           {1, "1 bytes"},          {1023, "1023 bytes"},
                 {1024, "1.00 KB"},        {2000, "1.95 KB"},       {10239, "9.99 KB"},
                 {10240, "10.0 KB"},       {102399, "99.9 KB"},     {102400, "100 KB"},
                 {1023999, "999 KB"},      {1024000, "0.97 MB"},    {1048575, "0.99 MB"},
                 {1048576, "1.00 MB"},     {123456789, "117 MB"},   {1048575999, "999 MB"},
                 {1048576000, "0.97 GB"},  {1073741824, "1.00 GB"}, {2147483647, "1.99 GB"},
                 {-2147483648, "2.00 GB"}, {-1, "3.99 GB"}};
    for (const auto& c : cases) {
        EXPECT_EQ(platform::StrFormatByteSize(c.bytes), c.text) << c.bytes;
    }
}

}  // namespace
