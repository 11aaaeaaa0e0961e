#pragma once

#include <stdexcept>
#include <string>

namespace alinhavo {

/// Where something stands in a template.
struct TTemplatePlace {
    std::string file; ///< "WFacPen.prt"
    int line = 0; ///< from 1; 0: the file as a whole
};

/// A template cannot be used. The text names file, line and what was being evaluated, in Portuguese, for the person who
/// changed the template.
class ETemplate : public std::runtime_error {
public:
    ETemplate(const TTemplatePlace& place, const std::string& expression, const std::string& reason)
        : std::runtime_error(Compose(place, expression, reason))
    {
    }

private:
    static std::string Compose(const TTemplatePlace& place, const std::string& expression, const std::string& reason)
    {
        std::string text = "Erro no modelo " + place.file;
        if (place.line > 0)
            text += ", linha " + std::to_string(place.line);
        text += ": " + reason;
        return expression.empty() ? text : text + "\n" + expression;
    }
};

/// The report was given up while it was being made.
class EReportCancelled : public std::runtime_error {
public:
    EReportCancelled()
        : std::runtime_error("Relatório cancelado.")
    {
    }
};

} // namespace alinhavo
