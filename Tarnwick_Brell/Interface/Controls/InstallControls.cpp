#include "Tarnwick_Brell/Interface/Controls/InstallControls.h"

#include <QQmlEngine>

#include "Tarnwick_Brell/Interface/Controls/ShadowImages.h"
#include "Tarnwick_Brell/Interface/Controls/SymbolImages.h"

// Written by the build. Naming it keeps the linker from leaving out the module's types.
extern void qml_register_types_TarnwickBrell_Controls();

namespace app {

void installControls(QQmlEngine& engine) {
    [[maybe_unused]] void (*volatile types)() = &qml_register_types_TarnwickBrell_Controls;
    engine.addImportPath(QStringLiteral("qrc:/qt/qml"));
    // The engine owns its image providers.
    engine.addImageProvider(QStringLiteral("symbol"), new SymbolImages);
    engine.addImageProvider(QStringLiteral("shadow"), new ShadowImages);
}

}  // namespace app
