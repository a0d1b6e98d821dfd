# UTF-16 text is refused with its reason
grade utf16.sud
