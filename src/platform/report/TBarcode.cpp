#include "platform/report/TBarcode.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "platform/report/THtmlOutput.h"

#include <memory>
#include <stdexcept>
#include <zint.h>

namespace alinhavo {
namespace {

struct TFreeSymbol {
    void operator()(zint_symbol* symbol) const { ZBarcode_Delete(symbol); }
};

int Symbology(std::string_view kind)
{
    if (SameText(kind, "EAN13"))
        return BARCODE_EANX;
    if (SameText(kind, "DUN14"))
        return BARCODE_ITF14;
    if (SameText(kind, "128"))
        return BARCODE_CODE128;
    if (SameText(kind, "39"))
        return BARCODE_CODE39;
    if (SameText(kind, "QR"))
        return BARCODE_QRCODE;
    throw std::invalid_argument("o tipo de código de barras \"" + std::string(kind) + "\" não existe");
}

/// zint wants the digits without the check digit where it makes one itself, or checks one that it is given; both are
/// understood by it for EAN 13, and DUN 14 is given without.
std::string Digits(const std::string& code, int symbology)
{
    return symbology == BARCODE_ITF14 && code.size() == 14 ? code.substr(0, 13) : code;
}

std::string Attribute(const char* name, float value)
{
    return std::string(" ") + name + "=\"" + FloatToStr(RoundTo(static_cast<double>(value), 2)) + "\"";
}

std::string Drawing(const zint_vector& vector, const std::string& code, double height)
{
    std::string svg = "<svg class=\"codigo-de-barras\" role=\"img\" viewBox=\"0 0 "
        + FloatToStr(static_cast<double>(vector.width)) + " " + FloatToStr(static_cast<double>(vector.height))
        + "\" style=\"height:" + FloatToStr(height) + "mm\" aria-label=\"";
    AppendEscapedHtml(svg, code);
    svg += "\">";
    for (const auto* bar = vector.rectangles; bar; bar = bar->next) {
        svg += "<rect" + Attribute("x", bar->x) + Attribute("y", bar->y) + Attribute("width", bar->width)
            + Attribute("height", bar->height) + "/>";
    }
    for (const auto* text = vector.strings; text; text = text->next) {
        svg += "<text text-anchor=\"middle\" font-family=\"sans-serif\"" + Attribute("x", text->x)
            + Attribute("y", text->y) + Attribute("font-size", text->fsize) + ">";
        AppendEscapedHtml(svg, reinterpret_cast<const char*>(text->text));
        svg += "</text>";
    }
    return svg + "</svg>";
}

TMarkup Unreadable(const std::string& code)
{
    TMarkup markup{"<span class=\"codigo-invalido\">", code};
    AppendEscapedHtml(markup.html, code);
    markup.html += "</span>";
    return markup;
}

} // namespace

TMarkup Barcode(const std::string& code, std::string_view kind, double height)
{
    const int symbology = Symbology(kind);
    if (code.empty())
        return {};
    const std::unique_ptr<zint_symbol, TFreeSymbol> symbol(ZBarcode_Create());
    if (!symbol)
        throw std::bad_alloc();
    symbol->symbology = symbology;
    symbol->input_mode = UNICODE_MODE;
    const auto digits = Digits(code, symbology);
    const int status = ZBarcode_Encode_and_Buffer_Vector(
        symbol.get(), reinterpret_cast<const unsigned char*>(digits.data()), static_cast<int>(digits.size()), 0);
    if (status >= ZINT_ERROR || !symbol->vector)
        return Unreadable(code);
    return {Drawing(*symbol->vector, code, height), code};
}

} // namespace alinhavo
