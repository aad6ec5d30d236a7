// The control port: one shift register for commands in and words out. What it says and understands stands in
// docs/gateware.md. All in the domain of the control clock; the status words are of the sample clock, and a bit of
// them that changes at this moment has a period to settle, since it is shifted out later.
module jex_readout #(
    parameter NUMBER = 0,
    parameter WIDTH = 1,
    parameter ADDRESS_BITS = 2
) (
    input wire ctl_clock,
    input wire ctl_select,
    input wire ctl_capture,
    input wire ctl_shift,
    input wire ctl_update,
    input wire ctl_tdi,
    output wire ctl_tdo,
    output reg arm, // changes with each command
    output reg force_line,
    output wire load, // ctl_tdi is a bit for the match units
    input wire [31:0] status,
    input wire [31:0] seen,
    output reg [ADDRESS_BITS-1:0] address,
    input wire [WIDTH-1:0] sample
);

    localparam [7:0] ARM = 8'd1, FORCE = 8'd2, STATUS = 8'd3, SAMPLES = 8'd4, LOAD = 8'd5;
    localparam WORDS = (WIDTH + 31) / 32;
    localparam [31:0] LAST_WORD = WORDS - 1;
    localparam [31:0] ONE = 1;
    localparam [31:0] CORE = NUMBER;
    localparam [31:0] BITS = WIDTH;
    localparam AB = ADDRESS_BITS;

    function integer bits_for; // of a number below this one, at least 1
        input integer count;
        integer left;
        begin
            bits_for = 1;
            for (left = (count - 1) / 2; left > 0; left = left / 2) bits_for = bits_for + 1;
        end
    endfunction
    localparam INDEX_BITS = bits_for(WORDS);

    reg [39:0] command;
    reg [31:0] word;
    reg [4:0] shifted;
    reg [10:0] index;
    reg of_samples;
    reg loading;

    initial begin
        command = 40'd0;
        word = 32'd0;
        shifted = 5'd0;
        index = 11'd0;
        of_samples = 1'b0;
        loading = 1'b0;
        address = {AB{1'b0}};
        arm = 1'b0;
        force_line = 1'b0;
    end

    // The word that comes next. Its index counts through a sample, or through the status words.
    wire [32*WORDS-1:0] padded;
    assign padded[WIDTH-1:0] = sample;
    generate
        if (32 * WORDS > WIDTH) begin : padding
            assign padded[32*WORDS-1:WIDTH] = {32 * WORDS - WIDTH{1'b0}};
        end
    endgenerate
    wire [31:0] sample_words[0:WORDS-1];
    genvar i;
    generate
        for (i = 0; i < WORDS; i = i + 1) begin : word_of
            assign sample_words[i] = padded[32*i+:32];
        end
    endgenerate
    wire [31:0] identity = {8'd1, CORE[7:0], BITS[15:0]};
    wire [31:0] state = index[1:0] == 2'd0 ? status : index[1:0] == 2'd1 ? seen : identity;
    wire [31:0] next_word = of_samples ? sample_words[index[INDEX_BITS-1:0]] : state;
    wire is_last = index == (of_samples ? LAST_WORD[10:0] : 11'd2);

    wire takes_word = ctl_select & (ctl_capture | (ctl_shift & (&shifted)));
    wire [7:0] code = command[39:32];

    assign ctl_tdo = word[0];
    assign load = ctl_select & ctl_shift & loading;

    always @(posedge ctl_clock) begin
        if (takes_word) begin
            word <= next_word;
            index <= is_last ? 11'd0 : index + 11'd1;
            if (is_last & of_samples) address <= address + ONE[AB-1:0];
        end else if (ctl_select & ctl_shift) word <= {1'b0, word[31:1]};

        if (ctl_select & ctl_capture) shifted <= 5'd0;
        else if (ctl_select & ctl_shift) begin
            shifted <= shifted + 5'd1;
            command <= {ctl_tdi, command[39:1]};
        end else if (ctl_select & ctl_update) begin
            if (~of_samples) index <= 11'd0; // the next scan begins with the first word
            if (loading) loading <= 1'b0;
            else begin
                if (code == ARM) arm <= ~arm;
                if (code == FORCE) force_line <= command[0];
                if (code == STATUS) of_samples <= 1'b0;
                if (code == SAMPLES) begin
                    of_samples <= 1'b1;
                    address <= command[AB-1:0];
                end
                if (code == STATUS || code == SAMPLES) index <= 11'd0;
                if (code == LOAD) loading <= 1'b1;
            end
            command <= 40'd0;
        end
    end

endmodule
