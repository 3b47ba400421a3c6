// Shows another picture while the pointer is on a picture.
// In the page: <IMG SRC="home.gif" ALT="Home" NAME="home"
//     onMouseOver="rollOver('home', true)" onMouseOut="rollOver('home', false)">
// Add one line for each picture below: its NAME, the usual file, the file under the pointer.

var rollOvers = new Object();

function addRollOver(name, usual, lit) {
  var pair = new Object();
  pair.usual = new Image();
  pair.usual.src = usual;
  pair.lit = new Image();
  pair.lit.src = lit;
  rollOvers[name] = pair;
}

function rollOver(name, isLit) {
  var pair = rollOvers[name];
  if (pair && document.images[name]) {
    document.images[name].src = isLit ? pair.lit.src : pair.usual.src;
  }
}

addRollOver("home", "home.gif", "home_lit.gif");
