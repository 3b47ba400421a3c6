' Keeps a form from being sent while a field that must be filled in is empty.
' In the page: <FORM NAME="order" METHOD="post" ACTION="...">, with a field named "email".
' The name of the form stands before _onSubmit below.

Function IsFilled(field)
  IsFilled = Len(Trim(field.value)) > 0
End Function

Function order_onSubmit()
  Dim field
  Set field = document.forms("order").elements("email")
  order_onSubmit = True
  If Not IsFilled(field) Then
    MsgBox "Please enter your e-mail address.", vbExclamation, "Order"
    field.focus
    order_onSubmit = False
  End If
End Function
