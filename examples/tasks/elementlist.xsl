<?xml version="1.0" encoding="UTF-8"?>
<!--
SPDX-FileCopyrightText: 2026 The ovt-common developers
SPDX-License-Identifier: LGPL-2.1-or-later
-->
<!-- The element list of the demo tool as an HTML table: one row per element, indented by its
     depth in the tree. The document carries its own (translated) labels:
     <elements title="" count="" element="" type="" details="">
       <element depth="" type="" title="" caption=""/>...
     </elements> -->
<xsl:stylesheet version="2.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform"
    xmlns:xs="http://www.w3.org/2001/XMLSchema" exclude-result-prefixes="xs">
  <xsl:output method="html"/>
  <xsl:template match="/elements">
    <html>
      <body>
        <h2><xsl:value-of select="@title"/></h2>
        <p><xsl:value-of select="@count"/></p>
        <table border="1" cellspacing="0" cellpadding="3" width="100%">
          <tr>
            <th align="left"><xsl:value-of select="@element"/></th>
            <th align="left"><xsl:value-of select="@type"/></th>
            <th align="left"><xsl:value-of select="@details"/></th>
          </tr>
          <xsl:for-each select="element">
            <tr>
              <td>
                <xsl:for-each select="1 to xs:integer(@depth)">&#160;&#160;&#160;&#160;</xsl:for-each>
                <xsl:value-of select="@title"/>
              </td>
              <td><xsl:value-of select="@type"/></td>
              <td><xsl:value-of select="@caption"/></td>
            </tr>
          </xsl:for-each>
        </table>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
