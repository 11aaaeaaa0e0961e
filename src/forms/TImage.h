#pragma once

#include "forms/TControl.h"

namespace alinhavo {

struct TImageOptions {
    std::string caption = {};
    std::string hint = {};
    bool enabled = true;
    bool visible = true;
};

/// A picture from a file of the server.
class TImage final : public TControl {
public:
    TImage(TContainer& parent, std::string name, TImageOptions options = {});
    std::string_view Kind() const override { return "image"; }

    const std::string& File() const { return file_; }
    /// Empty: no picture. The same file shown again is read again.
    void SetFile(std::string_view file);
    TEvent<> OnClick;
    TEvent<> OnDoubleClick;

    void Describe(IPropertySink& sink) const override;

protected:
    bool Interactive() const override { return false; }
    std::string Perform(const TUserEvent& event) override;

private:
    std::string file_;
    int version_ = 0;
};

} // namespace alinhavo
