#pragma once

// Makes the transformers of this folder known to ValueTransformerRegistry under their class names. Called
// once at start: a static library would lose a class that registers itself. Calling again changes nothing.
void registerHelperTransformers();
