<!DOCTYPE HTML PUBLIC "-//W3C//DTD HTML 4.01//EN" "http://www.w3.org/TR/html4/strict.dtd">
<HTML LANG="en">
<HEAD>
<META HTTP-EQUIV="Content-Type" CONTENT="text/html; charset=utf-8">
<META NAME="Generator" CONTENT="Kelvor">
<TITLE>Untitled</TITLE>
</HEAD>
<BODY>
<H1>Heading</H1>
<FORM METHOD="post" ACTION="/cgi-bin/form.pl">
<FIELDSET>
<LEGEND>About you</LEGEND>
<P><LABEL FOR="name">Name:</LABEL> <INPUT TYPE="text" NAME="name" ID="name" SIZE="40"></P>
<P><LABEL FOR="email">E-mail:</LABEL> <INPUT TYPE="text" NAME="email" ID="email" SIZE="40"></P>
<P><LABEL FOR="text">Message:</LABEL><BR>
<TEXTAREA NAME="text" ID="text" ROWS="8" COLS="50"></TEXTAREA></P>
</FIELDSET>
<P><INPUT TYPE="submit" VALUE="Send"> <INPUT TYPE="reset" VALUE="Clear"></P>
</FORM>
</BODY>
</HTML>
