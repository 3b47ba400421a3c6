<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN" "http://www.w3.org/TR/html4/loose.dtd">
<HTML>
<HEAD>
<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=utf-8">
<META NAME="Generator" CONTENT="Kelvor">
<TITLE>Untitled</TITLE>
</HEAD>
<BODY>
<TABLE SUMMARY="Contents on the left, the page on the right" BORDER="0" WIDTH="100%" CELLSPACING="0" CELLPADDING="8">
<TR>
<TD WIDTH="180" VALIGN="top">
<UL>
<LI><A HREF="index.html">Home</A></LI>
</UL>
</TD>
<TD VALIGN="top">
<H1>Heading</H1>
<P>Text</P>
</TD>
</TR>
</TABLE>
</BODY>
</HTML>
