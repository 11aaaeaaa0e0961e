#include "host/TfmFotoProd.h"

#include "forms/TApplication.h"

#include <filesystem>

namespace alinhavo {

void TfmFotoProd::Mostra()
{
    TDialog viewer;
    viewer.kind = TDialog::TKind::Picture;
    viewer.title = Titulo.empty() ? screen_.Caption() : Titulo;
    for (const auto& file : {Arquivo, Arquivo2}) {
        std::error_code unreadable;
        if (std::filesystem::is_regular_file(file, unreadable))
            viewer.files.push_back(file);
    }
    if (viewer.files.empty())
        return screen_.Mensagem("Foto não encontrada.", viewer.title);
    screen_.Application().ShowDialog(viewer);
}

} // namespace alinhavo
