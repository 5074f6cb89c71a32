10 PRINT "“ú–{"
