<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Frameset//EN" "http://www.w3.org/TR/html4/frameset.dtd">
<HTML>
<HEAD>
<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=utf-8">
<META NAME="Generator" CONTENT="Kelvor">
<TITLE>Untitled</TITLE>
</HEAD>
<FRAMESET COLS="200,*">
<FRAME NAME="contents" SRC="contents.html" TITLE="Contents">
<FRAME NAME="main" SRC="main.html" TITLE="Page">
<NOFRAMES>
<BODY>
<P>Start with the <A HREF="contents.html">contents</A>.</P>
</BODY>
</NOFRAMES>
</FRAMESET>
</HTML>
