<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01 Transitional//EN" "http://www.w3.org/TR/html4/loose.dtd">
<HTML>
<HEAD>
<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=utf-8">
<META NAME="Generator" CONTENT="Kelvor">
<TITLE>Untitled</TITLE>
<STYLE TYPE="text/css">
BODY { margin: 2em; background: #FFFFFF; color: #000000; font-family: sans-serif; }
H1 { font-size: 150%; }
A:hover { text-decoration: none; }
</STYLE>
</HEAD>
<BODY>
<H1>Heading</H1>
<P>Text</P>
</BODY>
</HTML>
