# a missing collection
solve /nonexistent/file.sud 1
