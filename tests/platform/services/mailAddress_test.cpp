#include "platform/services/mailAddress.h"

#include <gtest/gtest.h>
#include <string>

namespace alinhavo {
namespace {

TEST(MailAddress, is_a_name_at_a_domain)
{
    for (const auto* address : {"ana@exemplo.com.br", "ana.maria+of@x-1.exemplo.com", "A_b@e.co"})
        EXPECT_EQ(MailAddress(address), address);
    EXPECT_EQ(MailAddress("  ana@exemplo.com.br "), "ana@exemplo.com.br");
}

TEST(MailAddress, is_nothing_else)
{
    for (const auto* text :
        {"", "ana", "ana@", "@exemplo.com", "ana@exemplo", "ana@exemplo.c", "ana@@exemplo.com", "a na@exemplo.com",
            "ana@exemplo..com", ".ana@exemplo.com", "ana.@exemplo.com", "ana@exemplo.com,b@exemplo.com",
            "ana@exemplo.com\r\nBcc: b@exemplo.com", "<ana@exemplo.com>", "\"ana\"@exemplo.com", "aná@exemplo.com"})
        EXPECT_FALSE(MailAddress(text)) << text;
    EXPECT_FALSE(MailAddress(std::string(65, 'a') + "@exemplo.com"));
    EXPECT_FALSE(MailAddress("a@" + std::string(250, 'a') + ".com"));
}

} // namespace
} // namespace alinhavo
