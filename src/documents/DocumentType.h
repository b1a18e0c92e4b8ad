#pragma once

#include <QString>

namespace Foundation
{

// What the files of an application's documents are called.
struct DocumentType
{
    QString application;       // "vexarel", say: names its folders, and the temporary files of a save.
    QString fileNameExtension; // "vexcards", say: without the full stop.
};

} // namespace Foundation
