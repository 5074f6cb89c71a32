10 KEY 11,"ab"
