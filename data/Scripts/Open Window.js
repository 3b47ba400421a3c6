// Opens a page in a window of its own, in the middle of the screen.
// In the page: <A HREF="picture.html" TARGET="picture"
//     onClick="return openWindow(this.href, this.target, 400, 300)">
// Where the browser opens no window, or has no scripts, the link works as any other.

function openWindow(address, name, width, height) {
  var left = Math.max(0, Math.round((screen.availWidth - width) / 2));
  var top = Math.max(0, Math.round((screen.availHeight - height) / 2));
  var opened = window.open(address, name, "width=" + width + ",height=" + height +
    ",left=" + left + ",top=" + top + ",resizable=yes,scrollbars=yes");
  if (!opened) {
    return true;
  }
  opened.focus();
  return false;
}
