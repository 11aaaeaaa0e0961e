#include "platform/web/TConnectedSeen.h"

#include <gtest/gtest.h>

namespace alinhavo {
namespace {

class TTwoSessions final : public TConectados {
public:
    std::vector<TConectado> Lista() const override
    {
        std::vector<TConectado> list(2);
        list[0].id = "a";
        list[1].id = "b";
        return list;
    }
    TDateTime Agora() const override { return TDateTime::FromDate(2026, 11, 20); }
    bool Encerra(std::string_view id, std::string_view motivo) override
    {
        ended = std::string(id) + ": " + std::string(motivo);
        return true;
    }

    std::string ended;
};

TEST(ConnectedSeen, ASessionKnowsItselfAmongTheOthers)
{
    TTwoSessions everybody;
    const TConnectedSeen seen(everybody, "b");
    const auto list = seen.Lista();
    ASSERT_EQ(list.size(), 2U);
    EXPECT_FALSE(list[0].propria);
    EXPECT_TRUE(list[1].propria);
    EXPECT_EQ(seen.Agora(), everybody.Agora());
}

TEST(ConnectedSeen, ASessionEndsAnotherAndNotItself)
{
    TTwoSessions everybody;
    TConnectedSeen seen(everybody, "b");
    EXPECT_FALSE(seen.Encerra("b", "porque sim"));
    EXPECT_EQ(everybody.ended, "");
    EXPECT_TRUE(seen.Encerra("a", "porque sim"));
    EXPECT_EQ(everybody.ended, "a: porque sim");
}

} // namespace
} // namespace alinhavo
