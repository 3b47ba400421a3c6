// Keeps a form from being sent while a field that must be filled in is empty.
// In the page: <FORM METHOD="post" ACTION="..." onSubmit="return checkForm(this)">
// Name the fields below, each with the words for the user.

var neededFields = new Array(
  new Array("name", "your name"),
  new Array("email", "your e-mail address")
);

function isFilled(field) {
  return /[^ \t\r\n]/.test(field.value);
}

function checkForm(form) {
  for (var i = 0; i < neededFields.length; i++) {
    var field = form.elements[neededFields[i][0]];
    if (field && !isFilled(field)) {
      alert("Please enter " + neededFields[i][1] + ".");
      field.focus();
      return false;
    }
  }
  var email = form.elements["email"];
  if (email && !/^[^@ ]+@[^@ ]+\.[^@ .]+$/.test(email.value)) {
    alert("The e-mail address is not complete.");
    email.focus();
    return false;
  }
  return true;
}
