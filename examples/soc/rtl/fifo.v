// First in, first out. The oldest entry stands on dout while the FIFO is not empty.
module fifo #(
    parameter WIDTH      = 8,
    parameter DEPTH_LOG2 = 4
) (
    input  wire                clk,
    input  wire                rst,
    input  wire                push,
    input  wire [WIDTH-1:0]    din,
    input  wire                pop,
    output wire [WIDTH-1:0]    dout,
    output wire                full,
    output wire                empty,
    output wire [DEPTH_LOG2:0] level
);

    reg [WIDTH-1:0]    mem [0:(1<<DEPTH_LOG2)-1];
    reg [DEPTH_LOG2:0] write_pointer, read_pointer;

    wire do_push = push && !full;
    wire do_pop  = pop && !empty;

    assign level = write_pointer - read_pointer;
    assign empty = level == 0;
    assign full  = level[DEPTH_LOG2];
    assign dout  = mem[read_pointer[DEPTH_LOG2-1:0]];

    always @(posedge clk) begin
        if (do_push)
            mem[write_pointer[DEPTH_LOG2-1:0]] <= din;
        if (rst) begin
            write_pointer <= 0;
            read_pointer  <= 0;
        end else begin
            write_pointer <= write_pointer + {{DEPTH_LOG2{1'b0}}, do_push};
            read_pointer  <= read_pointer + {{DEPTH_LOG2{1'b0}}, do_pop};
        end
    end

endmodule
