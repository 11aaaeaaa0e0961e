#include "host/TTransDataSet.h"

#include <stdexcept>

namespace alinhavo {

void TTransDataSet::CriaCampos()
{
    if (!source_ || !target_)
        throw std::logic_error("a copy of a structure needs a source and a target");
    target_->CopyStructure(*source_);
}

} // namespace alinhavo
