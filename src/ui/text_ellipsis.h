#pragma once

#include <QString>

// Shortens a user-given name (stream, device, SSID, NDI source, list row) so
// that it fits the place named by `kind`; see text_ellipsis.cpp for the kinds.
QString buildEllipsisName(const QString& name, int kind);
