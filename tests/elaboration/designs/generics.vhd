-- Generics that make names of modules too long for Verilog tools.
entity Leaf is
  generic (First, Second, Third : string; Width : positive);
  port (a : in bit; q : out bit_vector(Width - 1 downto 0));
end entity;
architecture rtl of Leaf is signal s : bit_vector(Width downto 1); begin s <= (others => a); q <= s; end architecture;
entity a_rather_long_name_of_an_entity_as_generators_like_to_make_them_for_the_parts_of_a_large_interconnect is
  generic (Name : string); port (a : in bit);
end entity;
architecture rtl of a_rather_long_name_of_an_entity_as_generators_like_to_make_them_for_the_parts_of_a_large_interconnect is
  signal s : bit;
begin s <= a; end architecture;
entity top is port (a : in bit); end entity;
architecture rtl of top is
  constant Text : string := "a text that is long enough to make any name a long one, and then some more of it";
begin
  L1 : entity work.Leaf generic map (Text, Text, Text, 2) port map (a, open);
  L2 : entity work.Leaf generic map (Text, Text, "other", 3) port map (a, open);
  buf : entity work.a_rather_long_name_of_an_entity_as_generators_like_to_make_them_for_the_parts_of_a_large_interconnect
    generic map (Text) port map (a);
end architecture;

--= top:top a
--= top/L1:Leaf a q[1:0] s[2:1]
--= top/L2:Leaf a q[2:0] s[3:1]
--= top/buf:a_rather_long_name_of_an_entity_as_generators_like_to_make_them_for_the_parts_of_a_large_interconnect
--= a s
