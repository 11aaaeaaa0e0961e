#pragma once

#include "platform/session/roteiro/TLine.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace alinhavo::roteiro {

/// A roteiro that cannot be read: what() says what is wrong at the place.
class ERoteiro : public std::runtime_error {
public:
    ERoteiro(TPlace place, const std::string& text)
        : std::runtime_error(text)
        , place_(std::move(place))
    {
    }
    const TPlace& Place() const { return place_; }

private:
    TPlace place_;
};

} // namespace alinhavo::roteiro
