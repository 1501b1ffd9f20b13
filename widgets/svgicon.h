#pragma once
// Icons drawn from SVG pictures by the SVG library itself. The toolkit's own way is a plugin that
// it looks for while the program runs: where it is not installed, every picture is empty.

#include <QIcon>
#include <QString>

/// The picture in a file or resource, drawn anew for every size. Empty where it cannot be read.
QIcon SvgIcon(const QString& path);
