#pragma once

#include "platform/report/IReportOutput.h"
#include "platform/report/TLua.h"
#include "platform/report/TPictures.h"
#include "platform/report/TScope.h"
#include "platform/report/TTemplate.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>

namespace alinhavo {

/// What a report is made with, besides the data of its screen.
struct TRenderSetup {
    std::map<std::string, TDataSet*, std::less<>> dataSets = {}; ///< of the host: "EMPRESA"
    std::map<std::string, TValue, std::less<>> names = {}; ///< of the host: "usuario", "agora"
    std::filesystem::path pictures = {}; ///< root of the shared files
    TReportLimits limits = {};
    const std::atomic<bool>* cancelled = nullptr;
};

/// A finished report.
struct TRendered {
    std::string text; ///< a document of HTML, or pages of plain text divided by form feeds
    std::set<std::string> unknownNames; ///< that neither data nor callback knew: misspelt, most of the time
};

/// Makes a report of a template and a screen's data. ETemplate and EReportCancelled; the data stays as it is.
class TRenderer {
public:
    TRenderer(const TTemplate& layout, const TprReportBase& report, const TRenderSetup& setup);

    TRendered Html();
    TRendered Text();

private:
    // The template
    void Nodes(const TTemplateNodes& nodes);
    void Node(const TTemplateText& node) { output_->Text(node.text); }
    void Node(const TTemplateValue& node);
    void Node(const TTemplateBand& node);
    void Node(const TTemplateChoice& node);
    void Node(const TTemplateLoop& node);
    void Node(const TTemplateAssignment& node);
    void Rows(const TTemplateBand& band);
    void Groups(const TTemplateBand& band, std::size_t level, std::size_t first, std::size_t last);
    void Range(std::string_view name, std::size_t first, std::size_t last, const std::function<void()>& action);
    std::size_t EndOfGroup(const std::vector<const TField*>& fields, std::size_t first, std::size_t last) const;
    std::vector<const TField*> GroupFields(const TTemplateBand& band, std::size_t level) const;
    std::string FieldsOfScreen(const TTemplateBand& band, std::size_t level) const;
    std::vector<std::size_t> ShownRows(const TTemplateBand& band, TDataSet& rows);
    void CheckProgress(const TTemplatePlace& place) const;

    // Values
    bool PlainField(const TTemplateValue& node);
    std::int64_t Whole(const TTemplateExpression& expression);
    std::string Strip(const TTemplateNodes& nodes);

    // Functions of the templates
    void AddTextFunctions();
    void AddNumberFunctions();
    void AddDataFunctions();
    void AddTotals();
    void AddPictureFunctions();
    void ForRange(const TLua::TArguments& arguments, const std::function<void(const TReportValue&)>& action);
    void ForAll(TDataSet& rows, const std::string& source, const std::function<void(const TReportValue&)>& action);
    void ForFrame(
        const TScope::TRange& range, const std::string& source, const std::function<void(const TReportValue&)>& action);
    TReportValue Search(const TLua::TArguments& arguments);
    TReportValue Current(std::string_view source);

    const TTemplate& template_;
    const TRenderSetup& setup_;
    TScope scope_;
    TLua lua_;
    TPictures pictures_;
    IReportOutput* output_ = nullptr;
    bool isText_ = false;
    bool asksForPages_ = false; ///< the template wants the number of pages, which is known only at the end
    int pages_ = 0;
    std::function<int()> page_;
    TTemplatePlace place_; ///< of what is being evaluated
    using TSearchIndex = std::unordered_map<std::string, std::size_t>;
    std::map<std::string, TSearchIndex> searches_; ///< by table and key field
};

} // namespace alinhavo
