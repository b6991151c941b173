#pragma once

#include <string_view>

#include <QColor>
#include <QPalette>

#include "desktop/uses.h"
#include "store/settings_store.h"

namespace tarvok::desktop {

/** Whose colours the program wears: the system's, or light or dark ones of its own. */
inline constexpr std::string_view kColourChoices[] = {"system", "light", "dark"};

/** Dresses the whole program by the user's choice; at the start, and again when the choice changes. */
void ApplyColours(SettingsStore& settings);

bool IsDark(const QPalette& palette);
/** A colour between two, `part` of 100 of the first. */
QColor Mix(const QColor& first, const QColor& second, int part);
/** Text that steps back behind the other. */
QColor MutedText(const QPalette& palette);

}  // namespace tarvok::desktop
