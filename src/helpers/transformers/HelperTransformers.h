#pragma once

// Registration of the transformers of this folder with ValueTransformerRegistry.

// Registers the classes that need no argument under their class names. Must be called at start; calling it
// again changes nothing. The list is explicit, because the linker would drop a class of a static library that
// only registers itself.
void registerHelperTransformers();

// Install transformers under other names, each in place of the former one with that name. For the
// application, once: "valueNot0", "valueIsOpSelDoc", "valueIs3", "heightAmplifier" and "dictToNSColor". With
// every new document: "valueIs1" and "ret1ifnot0".
void installApplicationTransformers();
void installDocumentTransformers();
