' Writes the day on which the page was changed last, in the form that the reader's
' system has for long dates. Place it where the line is to be.
' Nothing is written when the browser gives no date.

Function LastModifiedLine()
  LastModifiedLine = ""
  If IsDate(document.lastModified) Then
    LastModifiedLine = "Last modified: " & FormatDateTime(CDate(document.lastModified), vbLongDate)
  End If
End Function

document.write LastModifiedLine()
