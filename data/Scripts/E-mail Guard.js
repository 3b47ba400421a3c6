// Writes a mail link whose address does not stand in the page as one word, so that
// programs which gather addresses from pages do not see it.
// Place it where the link is to be, and put your own name and domain in.

function writeMailLink(name, domain, text) {
  var address = name + String.fromCharCode(64) + domain;
  document.write("<A HREF=\"mail" + "to:" + address + "\">" + (text ? text : address) + "<\/A>");
}

writeMailLink("someone", "example.com", "");
