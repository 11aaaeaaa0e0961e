#pragma once

namespace alinhavo {

/// How a modal screen or a dialog ended; None while it runs.
enum class TModalResult { None, Ok, Cancel, Yes, No };

} // namespace alinhavo
