entity e is generic (n : natural; A, -- both
 B : std_logic_vector(3 downto 0)); end;
