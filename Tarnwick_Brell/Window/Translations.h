#pragma once

namespace app {

/// From here on the application speaks the user's language as far as there is a catalogue of
/// it, and otherwise English, whose catalogue has the plural forms. To be called once, with an
/// application object that outlives all texts.
void installTranslations();

}  // namespace app
