# a missing collection
count /nonexistent/file.sud
