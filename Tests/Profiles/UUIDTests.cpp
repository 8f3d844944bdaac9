#include "Profiles/UUID.h"

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

namespace tervale {

namespace {
const std::string canonical = "7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95";
}

TEST(UUID, IsWrittenInUpperCase) {
    const UUID id{{0x7C, 0x3E, 0x2F, 0x80, 0x5D, 0x1A, 0x4B, 0x6E, 0x9A, 0x0C, 0x2F, 0x4D, 0x8E,
                   0x1B, 0x6A, 0x95}};
    EXPECT_EQ(id.text(), canonical);
    EXPECT_EQ(UUID().text(), "00000000-0000-0000-0000-000000000000");
}

TEST(UUID, IsReadInEitherCase) {
    const std::optional<UUID> id = UUID::parse(canonical);
    ASSERT_TRUE(id);
    EXPECT_EQ(id->text(), canonical);
    EXPECT_EQ(UUID::parse("7c3e2f80-5d1a-4b6e-9a0c-2f4d8e1b6a95"), id);
    EXPECT_EQ(UUID::parse("7C3e2f80-5d1A-4b6e-9a0c-2F4d8e1b6a95"), id);
}

TEST(UUID, IsNoOtherText) {
    for (const char* text :
         {"", "not-a-uuid", "7C3E2F805D1A4B6E9A0C2F4D8E1B6A95",
          "{7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95}", "7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95 ",
          " 7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A9", "7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A9G",
          "7C3E2F80+5D1A-4B6E-9A0C-2F4D8E1B6A95", "7C3E2F8-05D1A-4B6E-9A0C-2F4D8E1B6A95"})
        EXPECT_FALSE(UUID::parse(text)) << text;
}

TEST(UUID, IsReadFromNoTruncatedText) {
    for (std::size_t length = 0; length < canonical.size(); ++length)
        EXPECT_FALSE(UUID::parse(std::string_view(canonical).substr(0, length)));
}

TEST(UUID, IsAnotherEveryTimeWhenRandom) {
    std::unordered_set<UUID> ids;
    for (int count = 0; count < 1000; ++count) {
        const UUID id = UUID::random();
        EXPECT_EQ(UUID::parse(id.text()), id);
        EXPECT_EQ(id.bytes[6] >> 4U, 4);
        ids.insert(id);
    }
    EXPECT_EQ(ids.size(), 1000U);
}

} // namespace tervale
