#include "platform/report/TTemplateParser.h"

#include "forms/numbers.h"
#include "forms/text.h"
#include "platform/report/TTemplateFolder.h"

#include <algorithm>
#include <array>
#include <utility>

namespace alinhavo {
namespace {

constexpr int DeepestInclusion = 8;
constexpr int LongestPage = 1000;

bool IsNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// The text before and behind the first separator; all of it before, when there is none.
std::pair<std::string, std::string> Split(std::string_view text, std::string_view separator)
{
    const auto at = text.find(separator);
    if (at == std::string_view::npos)
        return {Trim(text), {}};
    return {Trim(text.substr(0, at)), Trim(text.substr(at + separator.size()))};
}

} // namespace

TTemplate TTemplate::Parse(std::string_view file, std::string_view text, const TTemplateFolder& folder)
{
    return TTemplateParser(folder).Parse(file, text);
}

TTemplate TTemplateParser::Parse(std::string_view file, std::string_view text)
{
    Load(file, text, 0);
    TTemplate result;
    result.file = file;
    while (true) {
        auto nodes = Nodes();
        std::ranges::move(nodes, std::back_inserter(result.nodes));
        if (AtEnd())
            return result;
        if (At("pagina"))
            Page(result);
        else if (At("topo"))
            result.top = Strip();
        else if (At("base"))
            result.base = Strip();
        else
            Fail(Line(), "\"" + Line().verb + "\" não tem o que fechar ou não é uma diretiva.");
    }
}

void TTemplateParser::Load(std::string_view file, std::string_view text, int depth)
{
    TTemplatePlace place{std::string(file), 1};
    while (!text.empty()) {
        const auto end = text.find('\n');
        auto line = text.substr(0, end);
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        LoadLine(line, place, depth);
        ++place.line;
    }
}

void TTemplateParser::LoadLine(std::string_view text, const TTemplatePlace& place, int depth)
{
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos || text[first] != '%') {
        lines_.push_back({std::string(text), place});
        return;
    }
    auto line = Directive(text.substr(first + 1), place);
    if (line.verb == "%") {
        lines_.push_back({std::string(text.substr(0, first)) + std::string(text.substr(first + 1)), place});
    } else if (line.verb == "inclui") {
        if (depth == DeepestInclusion)
            Fail(line, "os modelos incluem uns aos outros sem fim.");
        Load(TemplateFile(line.argument), folder_.Read(line.argument), depth + 1);
    } else if (!line.verb.starts_with("--")) {
        lines_.push_back(std::move(line));
    }
}

TTemplateParser::TLine TTemplateParser::Directive(std::string_view text, const TTemplatePlace& place) const
{
    const auto trimmed = Trim(text);
    if (trimmed.starts_with('%'))
        return {std::string(text), place, true, "%"};
    auto [verb, argument] = Split(trimmed, " ");
    return {"% " + trimmed, place, true, LowerCase(verb), argument};
}

void TTemplateParser::Fail(const TLine& line, const std::string& reason) const
{
    throw ETemplate(line.place, Trim(line.text), reason);
}

void TTemplateParser::ExpectEnd(const TLine& opener)
{
    if (AtEnd())
        Fail(opener, "falta o \"% fim\" desta linha.");
    if (!At("fim"))
        Fail(Line(), "\"" + Line().verb + "\" não pode estar aqui; falta um \"% fim\"?");
    Take();
}

// % pagina 66
void TTemplateParser::Page(TTemplate& result)
{
    const auto& line = Take();
    const auto lines = ParseInteger(line.argument);
    if (!lines || *lines < 1 || *lines > LongestPage)
        Fail(line, "depois de \"pagina\" vem o número de linhas, de 1 a 1000.");
    result.pageLines = static_cast<int>(*lines);
}

TTemplateNodes TTemplateParser::Strip()
{
    const auto opener = Take();
    auto nodes = Nodes();
    ExpectEnd(opener);
    return nodes;
}

TTemplateNodes TTemplateParser::Nodes()
{
    TTemplateNodes nodes;
    while (!AtEnd()) {
        if (!Line().isDirective)
            Text(nodes, Take());
        else if (At("faixa"))
            nodes.emplace_back(Band());
        else if (At("se"))
            nodes.emplace_back(Choice());
        else if (At("para"))
            nodes.emplace_back(Loop());
        else if (At("define"))
            nodes.emplace_back(Assignment());
        else
            break;
    }
    return nodes;
}

void TTemplateParser::Text(TTemplateNodes& nodes, const TLine& line)
{
    std::string_view rest = line.text;
    for (auto open = rest.find("{{"); open != std::string_view::npos; open = rest.find("{{")) {
        Plain(nodes, rest.substr(0, open), line);
        const auto close = EndOfExpression(rest, open + 2);
        if (close == std::string_view::npos)
            Fail(line, "falta o \"}}\" que fecha a expressão.");
        const auto source = Trim(rest.substr(open + 2, close - open - 2));
        if (source.empty())
            Fail(line, "a expressão entre \"{{\" e \"}}\" está vazia.");
        nodes.emplace_back(TTemplateValue{{source, line.place}, inStyle_});
        rest.remove_prefix(close + 2);
    }
    Plain(nodes, std::string(rest) + "\n", line);
}

/// The }} that is not within a text of the expression.
std::size_t TTemplateParser::EndOfExpression(std::string_view text, std::size_t from)
{
    char quote = 0;
    for (auto at = from; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != 0)
            quote = c == quote ? '\0' : quote;
        else if (c == '"' || c == '\'')
            quote = c;
        else if (text.substr(at).starts_with("}}"))
            return at;
    }
    return std::string_view::npos;
}

void TTemplateParser::Plain(TTemplateNodes& nodes, std::string_view text, const TLine& line)
{
    if (text.empty())
        return;
    const auto lowered = LowerCase(text);
    if (lowered.find("<script") != std::string::npos)
        Fail(line, "um modelo não pode ter <script>.");
    const auto open = lowered.rfind("<style");
    const auto close = lowered.rfind("</style");
    if (open != std::string::npos && (close == std::string::npos || close < open))
        inStyle_ = true;
    else if (close != std::string::npos)
        inStyle_ = false;

    auto* last = nodes.empty() ? nullptr : std::get_if<TTemplateText>(&nodes.back());
    if (last)
        last->text += text;
    else
        nodes.emplace_back(TTemplateText{std::string(text)});
}

TTemplateBand TTemplateParser::Band()
{
    const auto opener = Take();
    const auto [dataset, condition] = Split(opener.argument, " onde ");
    TTemplateBand band;
    band.dataset = Name(opener, dataset);
    band.where = Expression(opener, condition);
    band.header = Nodes();
    while (!AtEnd() && !At("fim")) {
        if (At("grupo"))
            band.groups.push_back(Group(band));
        else if (At("linha"))
            Take(), band.row = Nodes();
        else if (At("rodape"))
            Footer(band);
        else if (At("vazia"))
            Take(), band.empty = Nodes();
        else
            Fail(Line(), "\"" + Line().verb + "\" não pode estar dentro da faixa \"" + band.dataset + "\".");
    }
    ExpectEnd(opener);
    return band;
}

// % grupo op = FAC_CODCLI;FAC_NUMERO
TTemplateBand::TGroup TTemplateParser::Group(const TTemplateBand& band)
{
    const auto line = Take();
    const auto [name, fields] = Split(line.argument, "=");
    if (std::ranges::any_of(band.groups, [&](const auto& group) { return SameText(group.name, name); }))
        Fail(line, "já há um grupo com este nome.");
    TTemplateBand::TGroup group;
    group.name = Name(line, name);
    group.fields = fields;
    group.header = Nodes();
    return group;
}

void TTemplateParser::Footer(TTemplateBand& band)
{
    const auto line = Take();
    if (line.argument.empty()) {
        band.footer = Nodes();
        return;
    }
    const auto found
        = std::ranges::find_if(band.groups, [&](const auto& group) { return SameText(group.name, line.argument); });
    if (found == band.groups.end())
        Fail(line, "não há grupo com este nome nesta faixa.");
    found->footer = Nodes();
}

TTemplateChoice TTemplateParser::Choice()
{
    const auto opener = Take();
    TTemplateChoice choice;
    if (opener.argument.empty())
        Fail(opener, "falta a condição.");
    choice.branches.push_back({Expression(opener, opener.argument), Nodes()});
    while (At("senaose")) {
        const auto line = Take();
        if (line.argument.empty())
            Fail(line, "falta a condição.");
        choice.branches.push_back({Expression(line, line.argument), Nodes()});
    }
    if (At("senao")) {
        const auto line = Take();
        choice.branches.push_back({Expression(line, {}), Nodes()});
    }
    ExpectEnd(opener);
    return choice;
}

TTemplateLoop TTemplateParser::Loop()
{
    const auto opener = Take();
    const auto [name, bounds] = Split(opener.argument, "=");
    const auto [from, to] = Split(bounds, ",");
    if (from.empty() || to.empty())
        Fail(opener, "escreva, por exemplo: % para i = 1, 31");
    TTemplateLoop loop{Name(opener, name), Expression(opener, from), Expression(opener, to), {}};
    loop.nodes = Nodes();
    ExpectEnd(opener);
    return loop;
}

TTemplateAssignment TTemplateParser::Assignment()
{
    const auto line = Take();
    const auto [name, value] = Split(line.argument, "=");
    if (value.empty())
        Fail(line, "escreva, por exemplo: % define total = soma(\"QUANT_PEND\")");
    return {Name(line, name), Expression(line, value)};
}

TTemplateExpression TTemplateParser::Expression(const TLine& line, std::string_view source) const
{
    return {std::string(source), line.place};
}

std::string TTemplateParser::Name(const TLine& line, std::string_view text) const
{
    const bool good
        = !text.empty() && !(text[0] >= '0' && text[0] <= '9') && std::ranges::all_of(text, IsNameCharacter);
    if (!good)
        Fail(line, "falta um nome feito de letras, algarismos e \"_\".");
    return std::string(text);
}

} // namespace alinhavo
