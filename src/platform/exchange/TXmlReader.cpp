#include "platform/exchange/TXmlReader.h"

#include "platform/exchange/EExchange.h"

#include <expat.h>
#include <new>

namespace alinhavo {
namespace {

std::string_view WithoutPrefix(std::string_view name) { return name.substr(name.rfind(':') + 1); }

[[noreturn]] void RefuseMalformed() { throw EExchange("A planilha está danificada."); }

} // namespace

std::string_view TXmlAttributes::operator[](std::string_view name) const
{
    for (const char** entry = list_; *entry; entry += 2) {
        if (WithoutPrefix(*entry) == name)
            return entry[1];
    }
    return {};
}

void TXmlReader::TFree::operator()(XML_ParserStruct* parser) const { XML_ParserFree(parser); }

TXmlReader::TXmlReader()
    : parser_(XML_ParserCreate(nullptr))
{
    if (!parser_)
        throw std::bad_alloc();
    XML_SetUserData(parser_.get(), this);
    XML_SetElementHandler(parser_.get(), Begin, End);
    XML_SetCharacterDataHandler(parser_.get(), Text);
    XML_SetStartDoctypeDeclHandler(parser_.get(), DocumentType);
}

void TXmlReader::Feed(std::string_view piece) { Parse(piece, false); }

void TXmlReader::Finish() { Parse({}, true); }

void TXmlReader::Parse(std::string_view piece, bool last)
{
    const auto status = XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), last ? 1 : 0);
    if (failure_)
        std::rethrow_exception(failure_);
    if (status != XML_STATUS_OK)
        RefuseMalformed();
}

void TXmlReader::Guarded(const std::function<void()>& handler)
{
    if (failure_)
        return;
    try {
        handler();
    } catch (...) {
        failure_ = std::current_exception();
        XML_StopParser(parser_.get(), XML_FALSE);
    }
}

void TXmlReader::Begin(void* self, const char* name, const char** attributes)
{
    auto& reader = *static_cast<TXmlReader*>(self);
    reader.Guarded([&] { reader.OnBegin(WithoutPrefix(name), TXmlAttributes(attributes)); });
}

void TXmlReader::End(void* self, const char* name)
{
    auto& reader = *static_cast<TXmlReader*>(self);
    reader.Guarded([&] { reader.OnEnd(WithoutPrefix(name)); });
}

void TXmlReader::Text(void* self, const char* text, int length)
{
    auto& reader = *static_cast<TXmlReader*>(self);
    reader.Guarded([&] { reader.OnText({text, static_cast<std::size_t>(length)}); });
}

void TXmlReader::DocumentType(void* self, const char*, const char*, const char*, int)
{
    auto& reader = *static_cast<TXmlReader*>(self);
    reader.Guarded([] { RefuseMalformed(); });
}

} // namespace alinhavo
