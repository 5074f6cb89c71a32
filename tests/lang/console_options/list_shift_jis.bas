10 PRINT "“ú–{"
