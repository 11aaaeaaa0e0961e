#include "platform/web/EProtocolError.h"
#include "platform/web/TClientMessage.h"

#include <gtest/gtest.h>
#include <random>

namespace alinhavo {
namespace {

using TKind = TUserEvent::TKind;

TClientMessage Decode(std::string_view text) { return TClientMessage::Decode(text); }

TEST(ClientMessage, ATextNamesItsControl)
{
    const auto message
        = Decode(R"({"n":7,"turn":3,"event":"text","form":"fmExemplo","control":"edtPedido","text":"Ação"})");
    EXPECT_EQ(message.number, 7);
    EXPECT_EQ(message.turn, 3);
    EXPECT_EQ(message.event.kind, TKind::Text);
    EXPECT_EQ(message.event.form, "fmExemplo");
    EXPECT_EQ(message.event.control, "edtPedido");
    EXPECT_EQ(message.event.text, "Ação");
}

TEST(ClientMessage, AKeyHasItsModifiers)
{
    const auto message = Decode(R"({"n":1,"turn":1,"event":"key","form":"","control":"","key":"Ctrl+Del"})");
    EXPECT_EQ(message.event.kind, TKind::Key);
    EXPECT_EQ(message.event.key.name, "Del");
    EXPECT_TRUE(message.event.key.ctrl);
}

TEST(ClientMessage, ACellHasRowAndColumn)
{
    const auto message
        = Decode(R"({"n":1,"turn":1,"event":"tick","form":"f","control":"g","row":4,"column":"Conf","checked":true})");
    EXPECT_EQ(message.event.kind, TKind::GridTick);
    EXPECT_EQ(message.event.row, 4);
    EXPECT_EQ(message.event.column, "Conf");
    EXPECT_TRUE(message.event.flag);
}

TEST(ClientMessage, APasteIsTheWholeText)
{
    const auto message = Decode(R"({"n":1,"turn":1,"event":"paste","form":"f","control":"g","text":"01\t5\n02\t6"})");
    EXPECT_EQ(message.event.kind, TKind::GridPaste);
    EXPECT_EQ(message.event.control, "g");
    EXPECT_EQ(message.event.text, "01\t5\n02\t6");
}

TEST(ClientMessage, AnAnswerIsForOneDialog)
{
    const auto message = Decode(R"({"n":1,"turn":1,"event":"answer","dialog":9,"button":"yes","rows":[2,5]})");
    EXPECT_EQ(message.event.kind, TKind::Answer);
    EXPECT_EQ(message.dialog, 9);
    EXPECT_EQ(message.event.answer, TModalResult::Yes);
    EXPECT_EQ(message.event.rows, (std::vector<std::int64_t>{2, 5}));
}

TEST(ClientMessage, RowsAreAskedForInMeasure)
{
    EXPECT_EQ(Decode(R"({"n":1,"turn":1,"event":"rows","form":"f","control":"g","first":100,"count":500})").first, 100);
    EXPECT_THROW(
        Decode(R"({"n":1,"turn":1,"event":"rows","form":"f","control":"g","first":100,"count":501})"), EProtocolError);
}

class MalformedMessage : public testing::TestWithParam<const char*> { };

TEST_P(MalformedMessage, IsRefused) { EXPECT_THROW(Decode(GetParam()), EProtocolError) << GetParam(); }

INSTANTIATE_TEST_SUITE_P(All, MalformedMessage,
    testing::Values("", "{", "null", "[]", "7", "\"text\"", "{}", "{\"n\":1}", "\xff\xfe", R"({"n":1,"turn":1})",
        R"({"n":1,"turn":1,"event":"nothing"})", R"({"n":1,"turn":1,"event":7})",
        R"({"turn":1,"event":"focus","form":"f","control":"c"})", R"({"n":1,"event":"focus","form":"f","control":"c"})",
        R"({"n":-1,"turn":1,"event":"focus","form":"f","control":"c"})",
        R"({"n":1.5,"turn":1,"event":"focus","form":"f","control":"c"})",
        R"({"n":"1","turn":1,"event":"focus","form":"f","control":"c"})",
        R"({"n":99999999999,"turn":1,"event":"focus","form":"f","control":"c"})",
        R"({"n":1,"turn":1,"event":"focus","form":"f"})", R"({"n":1,"turn":1,"event":"focus","form":"f","control":7})",
        R"({"n":1,"turn":1,"event":"focus","form":"f","control":"c","text":"more"})",
        R"({"n":1,"turn":1,"event":"text","form":"f","control":"c","text":null})",
        R"({"n":1,"turn":1,"event":"key","form":"f","control":"c","key":""})",
        R"({"n":1,"turn":1,"event":"check","form":"f","control":"c","checked":1})",
        R"({"n":1,"turn":1,"event":"select","form":"f","control":"c","index":-1})",
        R"({"n":1,"turn":1,"event":"answer","dialog":1,"button":"maybe"})",
        R"({"n":1,"turn":1,"event":"answer","dialog":1,"button":"ok","rows":["1"]})",
        "{\"n\":1,\"turn\":1,\"event\":\"text\",\"form\":\"f\",\"control\":\"c\",\"text\":\"\xff\"}"));

TEST(ClientMessage, ANameHasAMeasure)
{
    const std::string name(101, 'x');
    EXPECT_THROW(Decode(R"({"n":1,"turn":1,"event":"focus","form":")" + name + R"(","control":"c"})"), EProtocolError);
}

TEST(ClientMessage, AnOversizedMessageIsNotEvenRead)
{
    const auto text = R"({"n":1,"turn":1,"event":"search","dialog":1,"text":")"
        + std::string(TClientMessage::MaxBytes, 'x') + R"("})";
    EXPECT_THROW(Decode(text), EProtocolError);
}

TEST(ClientMessage, DeepNestingIsRefusedWithoutHarm)
{
    EXPECT_THROW(Decode(std::string(TClientMessage::MaxBytes, '[')), EProtocolError);
    EXPECT_THROW(Decode(R"({"n":)" + std::string(30'000, '[') + std::string(30'000, ']') + "}"), EProtocolError);
}

// Whatever arrives is decoded or refused; the seed is printed so that a failure can be repeated.
TEST(ClientMessage, MutationsOfAMessageAreDecodedOrRefused)
{
    const auto seed = std::random_device()();
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::string good
        = R"({"n":12,"turn":3,"event":"answer","dialog":4,"button":"ok","text":"ação","rows":[1,2],"password":"x"})";
    int decoded = 0;
    for (int round = 0; round < 20'000; ++round) {
        auto text = good;
        for (auto changes = random() % 4 + 1; changes > 0 && !text.empty(); --changes) {
            const auto place = random() % text.size();
            switch (random() % 3) {
            case 0:
                text[place] = static_cast<char>(random());
                break;
            case 1:
                text.erase(place, random() % 5 + 1);
                break;
            default:
                text.insert(place, text.substr(random() % text.size(), random() % 8));
            }
        }
        try {
            Decode(text);
            ++decoded;
        } catch (const EProtocolError&) {
        }
    }
    EXPECT_GT(decoded, 0);
    EXPECT_LT(decoded, 20'000);
}

} // namespace
} // namespace alinhavo
