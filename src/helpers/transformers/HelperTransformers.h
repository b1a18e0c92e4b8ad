#pragma once

// The transformers of this folder in ValueTransformerRegistry.

// Makes those that need no argument known under their class names. Called once at start: a static library
// would lose a class that registers itself. Calling again changes nothing.
void registerHelperTransformers();

// Install transformers under names of their own, each in place of the former one of that name: those of the
// application once, "valueNot0", "valueIsOpSelDoc", "valueIs3", "heightAmplifier" and "dictToNSColor"; those
// of a document with every new document, "valueIs1" and "ret1ifnot0".
void installApplicationTransformers();
void installDocumentTransformers();
