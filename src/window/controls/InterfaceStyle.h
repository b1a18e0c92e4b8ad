#pragma once

class QWidget;

// Applies properties that an interface file cannot express relative to the style of the desktop, to all
// widgets below `interface`: `fontScale` scales the font, `looksLikeLink` gives a button the colour of links,
// and `symbol` sets an icon in the colour of the text.
void styleInterface(QWidget *interface);
