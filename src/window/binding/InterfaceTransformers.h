#pragma once

// Registers the transformers that only interface files use:
//   withoutTrailingColon   a caption without the colon at its end
void registerInterfaceTransformers();
