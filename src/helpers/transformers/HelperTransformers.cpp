#include "helpers/transformers/HelperTransformers.h"

#include "helpers/VLDateTagElaborated.h"
#include "helpers/transformers/AppearanceTransformers.h"
#include "helpers/transformers/BookmarkTransformers.h"
#include "helpers/transformers/ComparingTransformers.h"
#include "helpers/transformers/NumberTransformers.h"
#include "helpers/transformers/TextTransformers.h"

using Foundation::ValueTransformer;
using Foundation::ValueTransformerRegistry;

namespace
{

template <class Transformer>
void registerAs(const QString &className)
{
    ValueTransformerRegistry::shared().registerClass(className,
                                                     [] { return std::make_unique<Transformer>(); });
}

void install(const QString &name, const std::shared_ptr<ValueTransformer> &transformer)
{
    ValueTransformerRegistry::shared().setValueTransformer(name, transformer);
}

} // namespace

void registerHelperTransformers()
{
    registerAs<VLDateTagElaborated>(QStringLiteral("VLDateTagElaborated"));
    registerAs<VLImgData>(QStringLiteral("VLImgData"));
    registerAs<VLIntToBool>(QStringLiteral("VLIntToBool"));
    registerAs<VLNegateIntToBool>(QStringLiteral("VLNegateIntToBool"));
    registerAs<VLOneIfOneInArray>(QStringLiteral("VLOneIfOneInArray"));
    registerAs<VLPathFromBookmark>(QStringLiteral("VLPathFromBookmark"));
    registerAs<VLNameFromBookmark>(QStringLiteral("VLNameFromBookmark"));
    registerAs<VL1IfNot0>(QStringLiteral("VL1IfNot0"));
    registerAs<VLNumberBoolToNumberNum>(QStringLiteral("VLNumberBoolToNumberNum"));
    registerAs<VLValueIs0>(QStringLiteral("VLValueIs0"));
    registerAs<VLValueIs1>(QStringLiteral("VLValueIs1"));
    registerAs<VLValueIs2>(QStringLiteral("VLValueIs2"));
    registerAs<VLValueIs3>(QStringLiteral("VLValueIs3"));
    registerAs<VLValueIs4>(QStringLiteral("VLValueIs4"));
    registerAs<VLValueIs5>(QStringLiteral("VLValueIs5"));
    registerAs<VLValueIs6>(QStringLiteral("VLValueIs6"));
    registerAs<VLValueIs7>(QStringLiteral("VLValueIs7"));
    registerAs<VLValueIs8>(QStringLiteral("VLValueIs8"));
    registerAs<VLValueIs9>(QStringLiteral("VLValueIs9"));
    registerAs<VLHeightForFontSize>(QStringLiteral("VLHeightForFontSize"));
    registerAs<VLUnarchivieFromDataToText>(QStringLiteral("VLUnarchivieFromDataToText"));
    registerAs<VLEmptyTrimmedString>(QStringLiteral("VLEmptyTrimmedString"));
    registerAs<VLFilledTrimmedString>(QStringLiteral("VLFilledTrimmedString"));
    registerAs<VLDictToNSColor>(QStringLiteral("VLDictToNSColor"));
}

void installApplicationTransformers()
{
    install(QStringLiteral("valueNot0"), std::make_shared<VLValueNotEqualToRef>(0));
    install(QStringLiteral("valueIsOpSelDoc"),
            std::make_shared<VLValueIsEqualToStr>(QStringLiteral("Open Selected Document")));
    install(QStringLiteral("valueIs3"), std::make_shared<VLValueIsEqualToRef>(3));
    install(QStringLiteral("heightAmplifier"), std::make_shared<VLHeightForFontSize>());
    install(QStringLiteral("dictToNSColor"), std::make_shared<VLDictToNSColor>());
}

void installDocumentTransformers()
{
    install(QStringLiteral("valueIs1"), std::make_shared<VLValueIsEqualToRef>(1));
    install(QStringLiteral("ret1ifnot0"), std::make_shared<VL1IfNot0>());
}
