// An element of a form file with its place in the file's text.
#ifndef OSTREL_DISPLAY_FORMNODE_H
#define OSTREL_DISPLAY_FORMNODE_H

#include <QString>
#include <QXmlStreamReader>
#include <vector>

#include "formelement.h"

struct FormTextPiece {
    int begin;
    int end;
    bool isCData;
};

struct FormNode {
    QString name;
    QXmlStreamAttributes attributes;
    int begin = 0;         // of the start tag
    int contentBegin = 0;  // behind the start tag
    int contentEnd = 0;    // before the end tag; as `end` where the element has none
    int end = 0;
    QString text;  // without the blanks between tags
    std::vector<FormTextPiece> pieces;
    std::vector<FormNode> children;

    bool isSelfClosed() const { return contentBegin == end; }
    const FormNode* property(const QString& wanted) const;
    FormElement element() const;
};

// Reads a document's text into the node of its root element; false, and why, when it is not XML.
bool readNodes(const QString& text, FormNode& root, QString* fault);

#endif
