#pragma once

class QQmlEngine;

namespace app {

/// Makes `import TarnwickBrell.Controls` work in the engine, icons and shadows included.
void installControls(QQmlEngine& engine);

}  // namespace app
