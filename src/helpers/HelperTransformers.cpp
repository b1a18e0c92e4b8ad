#include "helpers/HelperTransformers.h"

#include "helpers/VLDateTagElaborated.h"

using namespace Foundation;

void registerHelperTransformers()
{
    ValueTransformerRegistry::shared().registerClass(QStringLiteral("VLDateTagElaborated"),
                                                     [] { return std::make_unique<VLDateTagElaborated>(); });
}
