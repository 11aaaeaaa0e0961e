#pragma once

#include "forms/TForm.h"

#include <string>

namespace alinhavo {

/// The picture viewer: one or two image files, side by side, on top of a screen until it is dismissed.
class TfmFotoProd {
public:
    explicit TfmFotoProd(TForm& screen)
        : screen_(screen)
    {
    }

    std::string Arquivo; ///< full path
    std::string Arquivo2; ///< shown beside the first; may be empty
    std::string Titulo; ///< empty: the screen's caption

    /// Files that are not there are left out; when none is left the user is told so.
    void Mostra();

private:
    TForm& screen_;
};

} // namespace alinhavo
