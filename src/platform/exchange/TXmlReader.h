#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string_view>

struct XML_ParserStruct;

namespace alinhavo {

/// The attributes of an element, by their names without prefix.
class TXmlAttributes {
public:
    explicit TXmlAttributes(const char** list)
        : list_(list)
    {
    }
    /// "" when there is none.
    std::string_view operator[](std::string_view name) const;

private:
    const char** list_;
};

/// Reads XML that comes in pieces. Names are told without their prefix. A document type, with which a small file can unfold into
/// a large one, is refused.
class TXmlReader {
public:
    TXmlReader();

    std::function<void(std::string_view name, const TXmlAttributes& attributes)> OnBegin;
    std::function<void(std::string_view name)> OnEnd;
    std::function<void(std::string_view text)> OnText;

    /// EExchange when it is not well-formed. What a handler throws is passed on.
    void Feed(std::string_view piece);
    void Finish();

private:
    struct TFree {
        void operator()(XML_ParserStruct* parser) const;
    };

    static void Begin(void* self, const char* name, const char** attributes);
    static void End(void* self, const char* name);
    static void Text(void* self, const char* text, int length);
    static void DocumentType(void* self, const char*, const char*, const char*, int);

    void Guarded(const std::function<void()>& handler);
    void Parse(std::string_view piece, bool last);

    std::unique_ptr<XML_ParserStruct, TFree> parser_;
    std::exception_ptr failure_; ///< of a handler, which must not pass through the parser's own frames
};

} // namespace alinhavo
