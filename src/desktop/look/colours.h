#pragma once

#include <string_view>

#include <QColor>
#include <QPalette>

#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/** The colours that the program uses: those of the system, or its own light or dark ones. */
inline constexpr std::string_view kColourChoices[] = {"system", "light", "dark"};

/** Applies the colours of the user's choice to the whole program. Call it at the start and after the choice
 * changes. */
void ApplyColours(SettingsStore& settings);

bool IsDark(const QPalette& palette);
/** Mixes two colours, with `part` percent of the first. */
QColor Mix(const QColor& first, const QColor& second, int part);
/** The colour of muted text. */
QColor MutedText(const QPalette& palette);

}  // namespace tarvok::desktop
