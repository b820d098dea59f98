<?xml version="1.0" encoding="UTF-8"?>
<!-- The element list of the demo tool as an HTML table: one row per element, indented by its
     depth in the tree. The document is <elements title="..."><element depth="" type=""
     title="" caption=""/>...</elements>. -->
<xsl:stylesheet version="2.0" xmlns:xsl="http://www.w3.org/1999/XSL/Transform">
  <xsl:output method="html"/>
  <xsl:template match="/elements">
    <html>
      <body>
        <h2><xsl:value-of select="@title"/></h2>
        <p><xsl:value-of select="count(element)"/> elements</p>
        <table border="1" cellspacing="0" cellpadding="3" width="100%">
          <tr><th align="left">Element</th><th align="left">Type</th><th align="left">Details</th></tr>
          <xsl:for-each select="element">
            <tr>
              <td><xsl:value-of select="string-join(for $i in 1 to xs:integer(@depth) return '&#160;&#160;&#160;', '')"/><xsl:value-of select="@title"/></td>
              <td><xsl:value-of select="@type"/></td>
              <td><xsl:value-of select="@caption"/></td>
            </tr>
          </xsl:for-each>
        </table>
      </body>
    </html>
  </xsl:template>
</xsl:stylesheet>
