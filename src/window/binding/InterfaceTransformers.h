#pragma once

// Makes the transformers known that only interface files name:
//   withoutTrailingColon   a caption as it reads where no field follows it
void registerInterfaceTransformers();
