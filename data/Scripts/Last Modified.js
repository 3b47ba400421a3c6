// Writes the day on which the page was changed last, as in "Last modified: 5 March 2026".
// Place it where the line is to be. Nothing is written when the server does not tell the day.

function lastModifiedLine() {
  var months = new Array("January", "February", "March", "April", "May", "June", "July",
    "August", "September", "October", "November", "December");
  var time = Date.parse(document.lastModified);
  if (isNaN(time) || time <= 0) {
    return "";
  }
  var day = new Date(time);
  return "Last modified: " + day.getDate() + " " + months[day.getMonth()] + " " + day.getFullYear();
}

document.write(lastModifiedLine());
