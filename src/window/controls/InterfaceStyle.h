#pragma once

class QWidget;

// Gives the controls below what an interface file cannot say in terms of the desktop's own look: fonts larger
// or smaller by the factor in the dynamic property `fontScale`, the colour of links to buttons with
// `looksLikeLink`, and symbols in the colour of the text by the property `symbol`.
void styleInterface(QWidget *interface);
