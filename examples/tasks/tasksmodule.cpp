// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tasksmodule.h"

#include "element/element.h"
#include "element/elementdata.h"
#include "taskexampleselement.h"
#include "taskswidget.h"

#include <QXmlStreamWriter>

TasksModule::TasksModule(QObject *parent)
    : Module(QStringLiteral("tasks"), parent, false)
{
    _expectedDepth = 1;
    _moduleData->insert(QStringLiteral("title"), tr("Tasks"));
    _moduleData->insert(QStringLiteral("description"),
                        tr("Dummy tasks and a print preview of the element list"));
    _elementNodes << new TaskExamplesElement(*this);
    insertElementWidget(new TasksWidget(*this));
    connectElementWidgets();
}

namespace {

int countElements(const TreeNode *node)
{
    int count = 0;
    for (const TreeNode *child : node->childNodes())
        count += (qobject_cast<const Element *>(child) ? 1 + countElements(child) : 0);
    return count;
}

void writeElements(QXmlStreamWriter &xml, const TreeNode *node, int depth)
{
    for (const TreeNode *child : node->childNodes()) {
        const auto *element = qobject_cast<const Element *>(child);
        if (!element)
            continue;
        xml.writeStartElement(QStringLiteral("element"));
        xml.writeAttribute(QStringLiteral("depth"), QString::number(depth));
        xml.writeAttribute(QStringLiteral("type"), element->elementType());
        xml.writeAttribute(QStringLiteral("title"), element->title());
        xml.writeAttribute(QStringLiteral("caption"), element->caption());
        xml.writeEndElement();
        writeElements(xml, child, depth + 1);
    }
}

} // namespace

QString TasksModule::elementListXml(const Element *element)
{
    const TreeNode *root = element;
    while (root && root->parentNode())
        root = root->parentNode();
    QString text;
    QXmlStreamWriter xml(&text);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("elements"));
    // The style sheet cannot translate: its labels come with the document.
    xml.writeAttribute(QStringLiteral("title"), tr("Elements of the demo tool"));
    xml.writeAttribute(QStringLiteral("count"),
                       tr("%n element(s)", nullptr, root ? countElements(root) : 0));
    xml.writeAttribute(QStringLiteral("element"), tr("Element"));
    xml.writeAttribute(QStringLiteral("type"), tr("Type"));
    xml.writeAttribute(QStringLiteral("details"), tr("Details"));
    if (root)
        writeElements(xml, root, 0);
    xml.writeEndElement();
    xml.writeEndDocument();
    return text;
}
